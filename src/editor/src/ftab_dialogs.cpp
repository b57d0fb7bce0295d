// The document's dialogs as the editor opens them: each on the cursor's track,
// bar and tick, in the language of the main window.
#include <QFile>
#include <filesystem>

#include "dialogs/dialogs.h"
#include "editor/ftab.h"
#include "formats/catalogue.h"
#include "shell/vt.h"
#include "tools/faccords.h"

namespace vt {

void FTab::connecteDialogues() {
  const auto ouvre = [this](DialogueTab quoi) -> bool {
    const Textes t{m_vt.setLang()};
    CVantoroTablature& d = doc();
    const int p = d.CurseurPiste();
    const int m = d.CurseurMesure();
    const int x = d.CurseurX();
    switch (quoi) {
      case DialogueTab::Proprietes:
      case DialogueTab::ProprietesPiste: {
        const std::filesystem::path fichier(
            QFile::encodeName(m_vt.strAppPath() + QLatin1String(kFichierCatalogue)).toStdString());
        const CatalogueGuitares catalogue = CatalogueGuitares::load(fichier);
        const auto onglet = quoi == DialogueTab::Proprietes ? FTabProprietes::Onglet::Morceau
                                                            : FTabProprietes::Onglet::Pistes;
        return FTabProprietes::editer(this, t, catalogue, m_vt.guitare(), d, onglet, p);
      }
      case DialogueTab::Signature:
        return FTabGetTimeSignature::editer(this, t, d, m);
      case DialogueTab::Tonalite:
        return FTabGetKeySignature::editer(this, t, d, m);
      case DialogueTab::BarresMesure:
        return FTabMesure::editer(this, t, d, m);
      case DialogueTab::Tempo:
        return FTabTempo::editer(this, t, d, m, x);
      case DialogueTab::Texte:
        return FTabTextes::editer(this, t, d, p, m, x);
      case DialogueTab::Accord:
        return FTabAccord::getAccord(this, t, d, p, m, x, [this](Diagramme& diagramme) {
          const auto* accords = m_vt.fenetres().interface<FAccords>(fen::FAccords);
          QString nom;
          std::vector<int> cordes;
          if (!accords || !accords->doigtéAffiché(nom, cordes)) return false;
          diagramme.nom = nom;
          diagramme.nbrCordes = static_cast<int>(cordes.size()) - 1;
          for (int c = 1; c <= diagramme.nbrCordes && c < 8; ++c)
            diagramme.cases[static_cast<std::size_t>(c)] = cordes[static_cast<std::size_t>(c)];
          return true;
        });
      case DialogueTab::Transpose:
        return FTabTranspose::editer(this, t, d, p, m_vt.guitare());
    }
    return false;
  };
  setOuvreDialogue(ouvre,
                   {DialogueTab::Proprietes, DialogueTab::ProprietesPiste, DialogueTab::Transpose,
                    DialogueTab::Signature, DialogueTab::Tonalite, DialogueTab::BarresMesure,
                    DialogueTab::Tempo, DialogueTab::Texte, DialogueTab::Accord});
}

void FTab::connecteImports() {
  dialogueImport = [this](bool midi, const QString& chemin) {
    const Textes t{m_vt.setLang()};
    const std::filesystem::path fichier(
        QFile::encodeName(m_vt.strAppPath() + QLatin1String(kFichierCatalogue)).toStdString());
    const CatalogueGuitares catalogue = CatalogueGuitares::load(fichier);
    const auto aide = [this](const QString& page) { m_vt.montreAide(page); };
    return midi ? Fmid2vtb::importer(this, t, catalogue, m_vt.guitare(), chemin, doc(), aide)
                : Ftab2vtb::importer(this, t, catalogue, m_vt.guitare(), chemin, doc(), aide);
  };
}

}  // namespace vt
