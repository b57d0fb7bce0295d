// The file commands: new, open, save and save as, the question before the
// current tablature is dropped, the four recent files, the caption; a file
// that reaches the editor from outside (the command line, a drop on the main
// window); and the current instrument that follows the cursor's track.
#include <QFile>
#include <QFileInfo>
#include <filesystem>

#include "editor/ftab.h"
#include "formats/catalogue.h"
#include "formats/file_io.h"
#include "formats/vtb.h"
#include "shell/vt.h"

namespace vt {

namespace {
std::filesystem::path chemin(const QString& fichier) {
  return std::filesystem::path(QFile::encodeName(fichier).toStdString());
}

CatalogueGuitares catalogue(const VT& vt) {
  return CatalogueGuitares::load(chemin(vt.strAppPath() + QLatin1String(kFichierCatalogue)));
}

// The folder of a file, with its trailing separator, as the dialogs remember it.
QString dossierDe(const QString& fichier) {
  return QFileInfo(fichier).absolutePath() + QLatin1Char('/');
}
}  // namespace

QMessageBox::StandardButton FTab::save_current_file() {
  if (doc().modifi == kFaux) return QMessageBox::NoButton;
  const QMessageBox::StandardButton réponse =
      question(m_vt.loadString(6011), QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
  if (réponse == QMessageBox::Yes) MenuTabFile(2);
  return réponse;
}

void FTab::MenuTabFile(int index) {
  switch (index) {
    case 0:
      nouveauDocument();
      return;
    case 1:
      MenuTabFileOpen(true);
      return;
    case 2:
    case 3:
      MenuTabFileSaves(index);
      return;
    case 11:
      imprime();
      return;
    case 12:
      TimerMIDIStop(true);
      ouvreApercu();
      return;
    case 13:
      m_vt.MenuGlobalFile(2);
      return;
    case 14:
      TimerMIDIStop(true);
      ouvreMiseEnPage();
      return;
    case 16:
      m_vt.MenuGlobalFile(4);
      return;
    case 17:
      m_vt.MenuGlobalFile(5);
      return;
    case 19:
    case 20:
    case 21:
    case 22:
      MenuTabFileOpenLast(m_vt.settings().setTabLastOpenFile[static_cast<std::size_t>(index - 18)]);
      return;
    default:
      // Import and export have their own commands.
      return;
  }
}

void FTab::nouveauDocument() {
  TimerMIDIStop(true);
  if (save_current_file() == QMessageBox::Cancel) return;
  m_fichier.clear();
  libelléFenêtre();
  selClear();
  DebugInitialisation();
  updateGlobalGuitar();
}

void FTab::MenuTabFileOpen(bool boolDialog, const QString& nom) {
  TimerMIDIStop(true);
  if (save_current_file() == QMessageBox::Cancel) return;
  Settings& s = m_vt.settings();
  const bool retient = s.setTabRememberFolder != kFaux;
  QString fichier = nom;
  if (boolDialog) {
    const QString dossier = retient ? s.setTabFolderOpen : QString();
    fichier = choisitFichier(false, dossier, m_vt.loadString(6003), QString());
    // A cancelled dialog ends the command with nothing changed.
    if (fichier.isEmpty()) return;
  }
  if (retient) s.setTabFolderOpen = dossierDe(fichier);

  if (ouvreFichier(fichier) && boolDialog) {
    // The recent files move down by one; the file opened comes first.
    for (std::size_t i = 4; i >= 2; --i)
      s.setTabLastOpenFile[i] = s.setTabLastOpenFile[i - 1];
    s.setTabLastOpenFile[1] = fichier;
    updateLastOpenFile();
  }
}

void FTab::MenuTabFileOpenLast(const QString& nom) {
  // Looked at before the question: a vanished file changes nothing.
  if (nom.isEmpty() || !QFileInfo::exists(nom)) {
    message(m_vt.loadString(msg::kFichierIntrouvable));
    return;
  }
  // Reopening a recent file leaves the list in its order.
  MenuTabFileOpen(false, nom);
}

void FTab::MenuTabFileSaves(int index) {
  Settings& s = m_vt.settings();
  QString fichier = m_fichier;
  if (index == 3 || fichier.isEmpty()) {
    const bool retient = s.setTabRememberFolder != kFaux;
    const QString dossier =
        retient && !s.setTabFolderOpen.isEmpty() && QFileInfo(s.setTabFolderOpen).isDir()
            ? s.setTabFolderOpen
            : QString();
    fichier = choisitFichier(true, dossier, m_vt.loadString(6002), QString());
    if (fichier.isEmpty()) {
      // A cancelled dialog leaves the document unnamed, even after "Save as"
      // of a named one: the next plain save asks again.
      m_fichier.clear();
      return;
    }
    if (QFileInfo(fichier).suffix().isEmpty()) fichier += QStringLiteral(".vtb");
    if (retient) s.setTabFolderOpen = dossierDe(fichier);
    m_fichier = fichier;
    libelléFenêtre();
  }
  // The file is written beside the old one and renamed over it: a failed
  // save leaves the old file whole and the document still marked as changed.
  m_vt.showHourglass(true);
  const VtbSauvegarde résultat = io_enregistrer_vtb(doc(), chemin(fichier));
  m_vt.showHourglass(false);
  if (!résultat.ok()) {
    QString texte = m_vt.loadString(résultat.message);
    if (!résultat.détail.empty())
      texte += QStringLiteral("\n") + QString::fromStdString(résultat.détail);
    message(texte);
  }
}

void FTab::ouvreLigneDeCommande(const QString& fichier) {
  ouvreFichier(fichier);
}

void FTab::ouvreFichierDéposé(const QString& fichier) {
  TimerMIDIStop(true);
  if (save_current_file() == QMessageBox::Cancel) return;
  if (!ouvreFichier(fichier)) return;
  CVantoroTablature& d = doc();
  d.setCurseurX(0);
  d.setCurseurCorde(1);
  termine(true);
}

bool FTab::ouvreFichier(const QString& fichier) {
  arrêteNotes();
  const CatalogueGuitares guitares = catalogue(m_vt);
  VtbContexte ctx;
  ctx.catalogue = &guitares;
  ctx.guitare = m_vt.guitare();
  ctx.setLang = m_vt.setLang();
  m_vt.showHourglass(true);
  VtbLecture lecture = io_ouvrir_vtb(chemin(fichier), ctx);

  const bool ok = lecture.ok();
  if (ok) {
    // The document is refilled in place: the strip and the tools hold it.
    doc() = std::move(*lecture.document);
    m_fichier = fichier;
  } else {
    // The document stays as it was; the messages say why.
    m_vt.showHourglass(false);
    for (const int id : lecture.messages)
      message(m_vt.loadString(id));
    m_fichier.clear();
    doc().m_lngScrollValue = 1;
  }
  libelléFenêtre();
  selClear();
  tbPistesUpdate();
  termine(true);
  disableUndoRedoButtons();
  m_vt.showHourglass(false);
  return ok;
}

void FTab::updateGlobalGuitar() {
  const int p = piste();
  if (!doc().hasPiste(p) || doc().getStaffType(p) == kStaffBatterie) return;
  const int index = chercherGuitarePiste(catalogue(m_vt), doc().piste(p));
  // An instrument the catalogue does not know leaves the current one.
  if (index <= 0) return;
  m_vt.settings().setGuitare = static_cast<byt>(index);
  m_vt.loadGuitare(index);
  m_vt.updateManche();
}

}  // namespace vt
