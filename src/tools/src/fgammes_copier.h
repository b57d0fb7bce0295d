// FGammesCopier: the range of frets of a copy or a print of the scale. Two
// sliders, the first and the last fret, that cannot cross; "action" copies
// the picture of that range to the clipboard or prints it, "annuler" closes.
#pragma once

#include <QDialog>

class QLabel;
class QPushButton;
class QSlider;

namespace vt {

class FGammes;
class VT;

class FGammesCopier : public QDialog {
  Q_OBJECT

 public:
  enum class Action { Copier, Imprimer };

  FGammesCopier(VT& vt, FGammes& gammes, Action action);

  void setPlage(int min, int max);
  QSlider* sldMin() const { return m_sldMin; }
  QSlider* sldMax() const { return m_sldMax; }
  QPushButton* action() const { return m_action; }
  QPushButton* annuler() const { return m_annuler; }
  Action quoi() const { return m_quoi; }

 private:
  void action_Click();
  void suitCurseurs(QSlider* bougé);

  FGammes& m_gammes;
  Action m_quoi;
  QSlider* m_sldMin;
  QSlider* m_sldMax;
  QLabel* m_labMin;
  QLabel* m_labMax;
  QPushButton* m_action;
  QPushButton* m_annuler;
};

}  // namespace vt
