// FTip, the tip of the day: a random line of the language's tip file, the
// next one on demand, and whether to show the window at start.
#pragma once

#include <QDialog>
#include <QStringList>

#include "cursor_handback.h"

class QCheckBox;
class QLabel;
class QPushButton;

namespace vt {

class VT;

class FTip : public QDialog {
  Q_OBJECT

 public:
  explicit FTip(VT& vt);

  // Reads the tips, one a line; empty lines are not tips. A missing file gives none.
  void LoadTips(const QString& fichier);
  void DisplayCurrentTip();
  // A tip at random, another than the current one when there are two or more.
  void NextTip();

  const QStringList& Tips() const { return m_tips; }
  int currentTip() const { return m_courante; }
  QString texteAffiché() const;
  QCheckBox* chkLoadTipsAtStartup() const { return m_chk; }
  QPushButton* cmdNextTip() const { return m_suivante; }

  void rendCurseurALActivation() { m_curseur.armer(); }
  void rendCurseurSiBesoin() { m_curseur.rendre(); }

 protected:
  void showEvent(QShowEvent* e) override;

 private:
  VT& m_vt;
  QStringList m_tips;
  int m_courante = -1;
  QLabel* m_texte;
  QCheckBox* m_chk;
  QPushButton* m_suivante;
  CurseurARendre m_curseur;
};

}  // namespace vt
