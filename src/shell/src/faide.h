// FAide, the quick-access window: the tree of the help's topics. A topic opens
// a help page, brings a tool window forward or runs a command. Closing it
// means the user no longer wants it at start.
#pragma once

#include <QWidget>

#include "shell/fenetres.h"

class QLabel;
class QTreeWidget;
class QTreeWidgetItem;

namespace vt {

class VT;

class FAide : public QWidget, public FenetreVT {
  Q_OBJECT

 public:
  explicit FAide(VT& vt);

  void load_lang() override;
  QTreeWidget* tvAide() const { return m_arbre; }
  // Runs the action of the topic with this key; false when it has none.
  bool active(const QString& clé);

 protected:
  void closeEvent(QCloseEvent* e) override;

 private:
  void activeSujet(QTreeWidgetItem* item);
  QTreeWidgetItem* trouve(const QString& clé) const;

  VT& m_vt;
  QLabel* m_conseil;
  QTreeWidget* m_arbre;
};

}  // namespace vt
