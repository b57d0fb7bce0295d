// FTabPrint, the print preview of the cursor's track: the page on a grey
// ground (picFond, picTab), the page shown chosen by hsbPage, the page moved in
// the ground by the vertical scroll bar; Print through the system's print
// dialog, Copy puts the picture of the page on the clipboard, Page setup opens
// FTabPageSetup and shows the page anew after OK.
#pragma once

#include <QDialog>
#include <QImage>
#include <functional>

#include "render/tab_settings.h"

class QLabel;
class QPrinter;
class QScrollArea;
class QScrollBar;

namespace vt {

class CVantoroTablature;

// The print dialog, then the pages of a track on the printer: the pages and
// the copies the dialog left in the printer, in colour unless the settings
// print in black. `dialogue` gets the page count and answers false on Cancel.
enum class Impression { Annulee, Imprimee, Echouee };
Impression imprimePiste(QPrinter& printer, const CVantoroTablature& doc, const TabSettings& s,
                        int piste, const std::function<bool(QPrinter&, int pages)>& dialogue);
// The system's print dialog: pages from 1 to `pages`, all of them chosen.
bool dialogueImpressionSysteme(QWidget* parent, QPrinter& printer, int pages);

class FTabPrint : public QDialog {
  Q_OBJECT

 public:
  // `reglages` gives the settings of the pages each time they are shown (the
  // page setup may change them); `printer` is the program's printer, whose
  // sheet the pages take.
  FTabPrint(std::function<TabSettings()> reglages, const CVantoroTablature& doc, int piste,
            QPrinter& printer, std::function<QString(int)> texte, QWidget* parent = nullptr);

  // Lays the track out again, sets the page bar's range to the page count and
  // draws the page it shows.
  void affiche();
  void btnImprimer_Click();
  void btnCopy_Click();
  void btnMiseEnPage_Click();

  int nombrePages() const { return m_pages; }
  const QImage& image() const { return m_image; }
  QScrollBar* hsbPage() const { return m_hsbPage; }
  QScrollBar* vsbPage() const;

  // The system's print dialog; a message box; the page setup (true on OK).
  std::function<bool(QPrinter& printer, int pages)> dialogueImpression;
  std::function<void(const QString& texte)> message;
  std::function<bool()> miseEnPage;

 private:
  void dessinePage();

  std::function<TabSettings()> m_reglages;
  const CVantoroTablature& m_doc;
  int m_piste;
  QPrinter& m_printer;
  std::function<QString(int)> m_texte;
  int m_pages = 1;
  QImage m_image;
  QScrollArea* m_picFond;
  QLabel* m_picTab;
  QScrollBar* m_hsbPage;
  QLabel* m_labPage;
};

}  // namespace vt
