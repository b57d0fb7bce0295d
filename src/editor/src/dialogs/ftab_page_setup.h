// FTabPageSetup: the print options of the "Tab" settings on three pages, the
// layout (zoom, margins, spacing), the head (for each of its eight elements:
// printed or not, text style, alignment; the page number's pattern) and the
// options (staff, chords, bar numbers, rhythm, rests). The settings change
// only on OK.
#pragma once

#include <QDialog>
#include <array>
#include <functional>

#include "shell/settings.h"
#include "textes_dialogue.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QRadioButton;
class QSlider;
class QTabWidget;
class QToolButton;

namespace vt {

class FTabPageSetup : public QDialog {
  Q_OBJECT

 public:
  FTabPageSetup(const Textes& t, Settings& settings, QWidget* parent = nullptr);

  // Modal; true when the settings changed (OK).
  static bool editer(QWidget* parent, const Textes& t, Settings& settings,
                     std::function<void(const QString& page)> aide);

  // The text style dialog and the colour dialog: true with the choice made.
  std::function<bool(QFont& police)> choisitPolice;
  std::function<bool(QColor& couleur)> choisitCouleur;
  std::function<void(const QString& page)> aide;

  // The slider of the page factor counts tenths.
  static constexpr int kDixiemes = 10;

  void accept() override;
  // Back to the layout's defaults (the sliders only).
  void btnRestore_Click();
  // The head element the controls edit.
  void choisitElement(int index);
  int element() const { return m_element; }

 private:
  void montreElement();
  void montreStyle();

  Textes m_t;
  Settings& m_settings;
  Settings m_copie;  // what the controls edit until OK
  int m_element = 0;
  QTabWidget* m_onglets;
  QSlider* m_facteur;
  QSlider* m_margeGauche;
  QSlider* m_margeHaut;
  QSlider* m_cordes;
  QSlider* m_note;
  QSlider* m_mesure;
  std::array<QRadioButton*, 8> m_opt{};
  QCheckBox* m_chk;
  QLabel* m_labFont;
  std::array<QToolButton*, 3> m_alignement{};
  QLineEdit* m_numPage;
  QCheckBox* m_portee;
  QCheckBox* m_accords;
  QCheckBox* m_numMesure;
  QCheckBox* m_rythme;
  QCheckBox* m_silences;
  QCheckBox* m_silence1;
};

}  // namespace vt
