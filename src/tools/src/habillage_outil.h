// What the scale window and the harmoniser share of their look: the skin's
// picture buttons, the cream text on the dark wells of their backgrounds, and
// the all-notes-off of the settings' channel.
#pragma once

#include <QColor>
#include <QRect>

class QLabel;
class QListWidget;
class QWidget;

namespace vt {

class VT;
class VTPictureButton;

inline const QColor kCrème(0xF3, 0xE6, 0xC8);
inline const QColor kAmbre(0xFF, 0xB3, 0x47);
// The flat seat of the wells, and the tuner's "in tune".
inline const QColor kSiège(0x24, 0x1A, 0x13);
inline const QColor kVert(0x9C, 0xE0, 0x7A);

// A skin button at rest on picture `repos`, lit with `survol` under the mouse
// and while pressed, running the frames "<animation>NN" of the skin when it
// has them (the frames before the resting picture's number).
struct BoutonSkin {
  int repos;
  int survol;
  const char* animation;  // nullptr: a still button
};

VTPictureButton* créeBoutonSkin(QWidget* parent, const QRect& boîte);
// Sets (again) the pictures of a button from the current skin.
void habilleBouton(VTPictureButton* b, const VT& vt, const BoutonSkin& images);

// A list on a dark well: no frame, cream text, an amber selection.
void habilleListe(QListWidget* l);
// A text on the wood or in a well.
void habilleTexte(QLabel* l, bool gras = false);
// A new such text at `boîte`, of `points` points, its background left to the window's.
QLabel* créeTexte(QWidget* parent, const QString& nom, const QRect& boîte, int points,
                  bool gras = false);

// Controller 123 on the settings' channel.
void toutesNotesOff(VT& vt);

// The Exit button of a tool: closes the window's frame in the main window,
// or the window itself when it stands alone.
void fermeOutil(QWidget* fenêtre);

}  // namespace vt
