// Fmid2vtb: a MIDI file becomes the tablature. Each of up to seven tablature
// tracks takes the notes of one MIDI track (of one channel in a format 0
// file); the notes may be transposed and the tempo changes left out. The
// document is replaced only when the conversion succeeds: a refusal is shown
// in the dialog, which stays open with the document untouched.
#pragma once

#include <QDialog>
#include <array>
#include <memory>
#include <vector>

#include "document/records.h"
#include "formats/midi_reader.h"
#include "import_commun.h"
#include "textes_dialogue.h"

class QCheckBox;
class QComboBox;
class QCommandLinkButton;
class QLabel;
class QSpinBox;

namespace vt {

class CatalogueGuitares;
class CVantoroTablature;

class Fmid2vtb : public QDialog {
  Q_OBJECT

 public:
  static constexpr int kCibles = 7;

  // Reads the file at once; when it cannot be read, lu() is false and refus()
  // says why, and the dialog is not to be shown.
  Fmid2vtb(const Textes& t, const CatalogueGuitares& catalogue, const tGuitare& guitare,
           const QString& chemin, CVantoroTablature& doc, OuvreAide aide = {},
           QWidget* parent = nullptr);
  // Modal; true when the document was replaced. A file that cannot be read
  // is reported in a message box and nothing is shown.
  static bool importer(QWidget* parent, const Textes& t, const CatalogueGuitares& catalogue,
                       const tGuitare& guitare, const QString& chemin, CVantoroTablature& doc,
                       OuvreAide aide = {});

  bool lu() const { return m_lu; }
  const QString& refus() const { return m_refus; }
  bool remplace() const { return m_remplace; }
  // The sources listed, as the file has them.
  const std::vector<MidiSource>& sources() const { return m_sources; }
  // The source chosen in each list, in order, the empty lists left out.
  std::vector<int> choix() const;

  // Convert: runs the conversion and closes on success.
  void accept() override;

 private:
  void construit();
  void phrase();  // the sentence on the Convert button
  QString libellé(int source) const;

  Textes m_t;
  const CatalogueGuitares& m_catalogue;
  tGuitare m_guitare;
  QString m_chemin;
  CVantoroTablature& m_doc;
  OuvreAide m_aide;
  MidiFichier m_fichier;
  std::vector<MidiSource> m_sources;
  bool m_lu = false;
  QString m_refus;
  bool m_remplace = false;

  std::array<QComboBox*, kCibles> m_listes{};
  QSpinBox* m_transpose = nullptr;
  QCheckBox* m_tempos = nullptr;
  QCommandLinkButton* m_convertir = nullptr;
  QLabel* m_erreur = nullptr;
  std::unique_ptr<Avancement> m_avancement;
};

}  // namespace vt
