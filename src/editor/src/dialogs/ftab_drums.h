// fTabDrums: the drum picker that stands beside the editor while the current
// track has a drum staff. One button per family of sounds: a click gives the
// family's sound last chosen, its menu every sound of the family by name.
#pragma once

#include <QWidget>
#include <array>

#include "textes_dialogue.h"

class QToolButton;

namespace vt {

class fTabDrums : public QWidget {
  Q_OBJECT

 public:
  explicit fTabDrums(const Textes& t, QWidget* parent = nullptr);

  // The last note chosen, 0 before the first choice.
  int note() const { return m_note; }
  QToolButton* bouton(int famille) const { return m_boutons.at(static_cast<std::size_t>(famille)); }

  // Every caption and name in another language.
  void load_lang(const Textes& t);

 signals:
  // A drum was chosen: its General MIDI note, to enter as a drum track's fret.
  void drumChoisi(int note);

 private:
  void choisit(int famille, int note);

  Textes m_t;
  std::array<QToolButton*, 7> m_boutons{};
  std::array<int, 7> m_courantes{};
  int m_note = 0;
};

}  // namespace vt
