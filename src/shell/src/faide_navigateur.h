// The help window: the HTML pages of the language's help folder in a text
// browser, with back, forward, contents and a search over every page.
#pragma once

#include <QUrl>
#include <QWidget>

class QAction;
class QLabel;
class QLineEdit;
class QListWidget;
class QTextBrowser;

namespace vt {

class VT;

class FAideNavigateur : public QWidget {
  Q_OBJECT

 public:
  // A window of its own over `parent` (the main window when null): a modal
  // dialog that opens its help gives itself as the parent, so that the help
  // can be read and scrolled while the dialog waits.
  explicit FAideNavigateur(VT& vt, QWidget* parent = nullptr);

  // A page of the current language's folder, with an optional "#anchor".
  void montrePage(const QString& page);
  // Puts the focus on the search field.
  void cherche();
  // The words of `texte` (all of them, any case) are looked for in every
  // page; the list shows the pages that hold them, by title.
  QStringList recherche(const QString& texte);
  // Texts in the current language; the page shown follows in that language.
  void load_lang();

  QTextBrowser* navigateur() const { return m_pages; }
  QListWidget* résultats() const { return m_résultats; }

 private:
  VT& m_vt;
  QTextBrowser* m_pages;
  QLineEdit* m_recherche;
  QListWidget* m_résultats;
  QLabel* m_libelléRecherche;
  QAction* m_précédente;
  QAction* m_suivante;
  QAction* m_sommaire;
};

}  // namespace vt
