// Keys by their place on the keyboard. A fret is typed with the digit row or
// the keypad whatever the layout prints on the keys: unshifted, a French
// keyboard's digit row gives "&", "é", '"', "'", "(", "-", "è", "_", "ç", "à",
// which Qt reports as those characters. The key's place on the board, its
// native scan code, still says which digit it is.
#pragma once

#include <cstdint>

namespace vt {

// The key code the editor reads for a key: Qt::Key_0 to Qt::Key_9 for a key
// of the digit row (by its X keyboard code, AE01 to AE10 being 10 to 19 on
// every PC keyboard of the X server and of Wayland) or of the keypad, else
// Qt's key as it stands.
int toucheDeLaPlace(int key, std::uint32_t scanCode);

}  // namespace vt
