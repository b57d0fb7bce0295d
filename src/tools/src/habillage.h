// What the skinned tool windows of the tuner, the metronome and the media
// player share: their colours on the dark wood, picture buttons made from
// skin pictures, and a label drawn in the skin's colours.
#pragma once

#include <QColor>
#include <QLabel>
#include <QPixmap>
#include <QRect>
#include <QString>

class QWidget;

namespace vt {

class VT;
class VTPictureButton;

namespace habillage {

// Text on the dark wood, highlighted text, and the flat seat of the wells.
inline const QColor kCrème(0xF3, 0xE6, 0xC8);
inline const QColor kAmbre(0xFF, 0xB3, 0x47);
inline const QColor kSiège(0x24, 0x1A, 0x13);
inline const QColor kVert(0x9C, 0xE0, 0x7A);

// Picture `index` of the current skin; an empty picture when the file is missing.
QPixmap image(const VT& vt, int index);

// A picture button at `boîte`: at rest, under the mouse and pressed. With an
// animation prefix ("options00"), the frames before `repos` run under the mouse.
VTPictureButton* bouton(QWidget* parent, const QString& nom, const QRect& boîte);
void habille(VTPictureButton* b, const VT& vt, int repos, int survol, int appui,
             const QString& animation = {}, int dernièreFrame = -1);

// A label in cream on the wood, transparent.
QLabel* étiquette(QWidget* parent, const QString& nom, const QRect& boîte, int points = 9,
                  bool gras = false);

}  // namespace habillage
}  // namespace vt
