// vantoro: the main window is the start object; its load is the boot sequence.
// The windows of the editor and the tools register here, before the boot,
// with vt.fenetres().enregistrer(fen::FAccords, factory).
#include <QApplication>

#include "editor/ftab.h"
#include "shell/foptions.h"
#include "shell/vt.h"
#include "tools/faccordeur.h"
#include "tools/faccords.h"
#include "tools/fgammes.h"
#include "tools/fharmony.h"
#include "tools/fmetronome.h"
#include "tools/fmultimedia.h"

int main(int argc, char* argv[]) {
  QApplication app(argc, argv);
  QApplication::setOrganizationName(QStringLiteral("Vantoro"));
  QApplication::setApplicationName(QStringLiteral("Vantoro"));
  QApplication::setDesktopFileName(QStringLiteral("vantoro"));

  vt::VT vt;
  vt.fenetres().enregistrer(vt::fen::FTab, [](vt::VT& v) { return new vt::FTab(v); });
  vt.fenetres().enregistrer(vt::fen::FAccords, [](vt::VT& v) { return new vt::FAccords(v); });
  vt.fenetres().enregistrer(vt::fen::FGammes, [](vt::VT& v) { return new vt::FGammes(v); });
  vt.fenetres().enregistrer(vt::fen::FHarmony, [](vt::VT& v) { return new vt::FHarmony(v); });
  vt.fenetres().enregistrer(vt::fen::FAccordeur, [](vt::VT& v) { return new vt::FAccordeur(v); });
  vt.fenetres().enregistrer(vt::fen::FMetronome, [](vt::VT& v) { return new vt::FMetronome(v); });
  vt.fenetres().enregistrer(vt::fen::FMultimedia, [](vt::VT& v) { return new vt::FMultimedia(v); });
  vt.fenetres().enregistrer(
      vt::fen::FOptions, [](vt::VT& v) { return new vt::FOptions(v); },
      vt::RegistreFenetres::Genre::Dialogue);
  vt::VT::Démarrage démarrage;
  // The command line as typed: the whole of it names one file.
  démarrage.ligneDeCommande = QApplication::arguments().mid(1).join(QLatin1Char(' '));
  if (!vt.MDIForm_Load(démarrage)) return 1;
  return QApplication::exec();
}
