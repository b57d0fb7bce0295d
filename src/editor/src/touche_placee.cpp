#include "touche_placee.h"

#include <Qt>

namespace vt {

namespace {
// The X keyboard codes of the digit row: "1" to "9", then "0".
constexpr std::uint32_t kCodeUn = 10;
constexpr std::uint32_t kCodeZéro = 19;
}  // namespace

int toucheDeLaPlace(int key, std::uint32_t scanCode) {
  if (key >= Qt::Key_0 && key <= Qt::Key_9) return key;
  if (scanCode >= kCodeUn && scanCode <= kCodeZéro)
    return Qt::Key_0 + static_cast<int>((scanCode - kCodeUn + 1) % 10);
  return key;
}

}  // namespace vt
