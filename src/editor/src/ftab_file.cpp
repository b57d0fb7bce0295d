// A file that reaches the editor from outside (the command line, a drop on the
// main window), and the current instrument that follows the cursor's track.
#include <QFile>
#include <filesystem>

#include "editor/ftab.h"
#include "formats/catalogue.h"
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
}  // namespace

void FTab::ouvreLigneDeCommande(const QString& fichier) {
  ouvreFichier(fichier);
}

void FTab::ouvreFichierDéposé(const QString& fichier) {
  ouvreFichier(fichier);
}

void FTab::ouvreFichier(const QString& fichier) {
  arrêteNotes();
  const CatalogueGuitares guitares = catalogue(m_vt);
  VtbContexte ctx;
  ctx.catalogue = &guitares;
  ctx.guitare = m_vt.guitare();
  ctx.setLang = m_vt.setLang();
  m_vt.showHourglass(true);
  VtbLecture lecture = io_ouvrir_vtb(chemin(fichier), ctx);
  m_vt.showHourglass(false);

  if (lecture.ok()) {
    // The document is refilled in place: the strip and the tools hold it.
    doc() = std::move(*lecture.document);
    m_fichier = fichier;
  } else {
    // The document stays as it was; the messages say why.
    for (const int id : lecture.messages)
      message(m_vt.loadString(id));
    m_fichier.clear();
    doc().m_lngScrollValue = 1;
  }
  libelléFenêtre();
  tbPistesUpdate();
  if (doc().getStaffType(piste()) != kStaffBatterie) updateGlobalGuitar();
  selClear();
  termine(true);
  disableUndoRedoButtons();
}

void FTab::updateGlobalGuitar() {
  const int p = piste();
  if (!doc().hasPiste(p)) return;
  const int index = chercherGuitarePiste(catalogue(m_vt), doc().piste(p));
  // An instrument the catalogue does not know leaves the current one.
  if (index <= 0) return;
  m_vt.settings().setGuitare = static_cast<byt>(index);
  m_vt.loadGuitare(index);
  m_vt.updateManche();
}

}  // namespace vt
