// Ftab2vtb: a text tablature becomes the tablature. The dialog shows the
// file's text and lets the user choose the base rhythm, the length of one
// text column, on a small rhythm toolbar. The document is replaced only when
// the conversion succeeds: a text without tablature is refused in the dialog,
// which stays open with the document untouched.
#pragma once

#include <QDialog>
#include <array>
#include <memory>
#include <string>

#include "document/records.h"
#include "import_commun.h"
#include "textes_dialogue.h"

class QAction;
class QLabel;
class QPlainTextEdit;
class QToolBar;

namespace vt {

class CatalogueGuitares;
class CVantoroTablature;

class Ftab2vtb : public QDialog {
  Q_OBJECT

 public:
  // The rhythm buttons, from the whole note to the sixty-fourth.
  static constexpr int kRythmes = 7;
  // The button pressed at opening: an eighth note per column, the usual
  // reading of a text tablature's dashes.
  static constexpr int kRythmeInitial = 4;

  // Reads the file at once; when it cannot be read, lu() is false and refus()
  // says why, and the dialog is not to be shown. The new track has the
  // current instrument when it has six strings.
  Ftab2vtb(const Textes& t, const CatalogueGuitares& catalogue, const tGuitare& guitare,
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
  // Ticks of one text column: the pressed button's.
  int rythme() const;
  // The button of index 1..kRythmes.
  QAction* boutonRythme(int index) const;

  // Convert: runs the conversion and closes on success.
  void accept() override;

 private:
  void construit();
  QToolBar* barreRythme();

  Textes m_t;
  tGuitare m_guitare;
  CVantoroTablature& m_doc;
  OuvreAide m_aide;
  std::string m_texte;  // the file's bytes
  bool m_lu = false;
  QString m_refus;
  bool m_remplace = false;
  QString m_pageAide;

  std::array<QAction*, kRythmes> m_rythmes{};
  QPlainTextEdit* m_txtTab = nullptr;
  QLabel* m_erreur = nullptr;
  std::unique_ptr<Avancement> m_avancement;
};

}  // namespace vt
