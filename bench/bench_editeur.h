// The editor as the benchmarks drive it: the main window and FTab offscreen,
// English, a silent output, settings in a folder of their own, the strip
// 1610 x 700 pixels; keys sent as the window system sends them.
#pragma once

#include <QApplication>
#include <QKeyEvent>
#include <QMdiSubWindow>
#include <QSettings>
#include <QTemporaryDir>
#include <cstdlib>
#include <memory>

#include "editor/ftab.h"
#include "shell/vt.h"

namespace vt::banc {

class SonMuet : public SonLive {
 public:
  void midiOpenOut() override {}
  void midiOpenIn() override {}
  void midiCloseOut() override {}
  void midiCloseIn() override {}
  void midiNoteOnGlobal(int) override {}
  void midiNoteOffGlobal(int) override {}
  void midiController(int, int, int) override {}
};

struct EditeurBanc {
  QTemporaryDir dossier;
  std::unique_ptr<VT> vt;
  FTab* ftab = nullptr;

  EditeurBanc() {
    const QString réglages = dossier.filePath("settings.ini");
    {
      QSettings s(réglages, QSettings::IniFormat);
      s.setValue("Options/setLang", "10000");
      s.setValue(QString::fromUtf8("Options/setDémarrage"), "0");
      s.setValue("Options/Show Tips at Startup", "0");
      s.setValue("Options/setLoadHelpAccessWndAtStartup", "False");
      s.setValue("Options/setMancheVisible", "True");
    }
    qputenv("VANTORO_SETTINGS", réglages.toUtf8());
    vt = std::make_unique<VT>();
    VT::Interactions i;
    i.getLang = [] { return static_cast<i16>(10000); };
    i.exec = [](QDialog&) {};
    i.critique = [](const QString&, const QString&) {};
    i.information = [](const QString&) {};
    i.avertissement = [](const QString&) {};
    vt->setInteractions(i);
    vt->setSon(std::make_unique<SonMuet>());
    vt->fenetres().enregistrer(fen::FTab, [](VT& v) { return new FTab(v); });
    VT::Démarrage d;
    d.strAppPath = QStringLiteral(VT_BIN_DIR "/");
    d.dossierDonnéesUtilisateur = dossier.filePath("data");
    d.rafraîchirBureau = false;
    if (!vt->MDIForm_Load(d)) std::abort();
    vt->resize(1700, 1000);
    ftab = dynamic_cast<FTab*>(vt->montreFenetre(fen::FTab));
    if (ftab == nullptr) std::abort();
    ftab->setOuvreDialogue({}, {});
    if (auto* cadre = qobject_cast<QMdiSubWindow*>(ftab->parentWidget())) cadre->resize(1610, 700);
  }

  // The key as the window system sends it, then what it changed painted.
  void touche(int key, Qt::KeyboardModifiers mod = Qt::NoModifier) {
    QWidget* pic = ftab->picTab();
    QKeyEvent appui(QEvent::KeyPress, key, mod, QString());
    QApplication::sendEvent(pic, &appui);
    QKeyEvent relâche(QEvent::KeyRelease, key, mod, QString());
    QApplication::sendEvent(pic, &relâche);
    QApplication::processEvents();
  }
};

}  // namespace vt::banc
