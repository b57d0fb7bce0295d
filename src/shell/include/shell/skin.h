// The pictures of the tool windows: loose files of a skin folder
// "<strAppPath>skins/<strSkinPath>/", named after one fixed table of 86
// pictures, each a ".bmp" or a ".jpg". A skin may hold any subset of them: a
// picture it lacks comes from the skin "default".
#pragma once

#include <QString>

namespace vt {

inline constexpr int kNbrImagesSkin = 86;
inline constexpr const char* kSkinParDéfaut = "default";

// The base name of picture `index` ("fond" for 34); empty past the table.
QString skinName(int index);

// The folder of a skin: "<strAppPath>skins/<skin>/".
QString skinFolder(const QString& strAppPath, const QString& strSkinPath);

// The full path of picture `index`: the first that exists of the skin's
// ".bmp", the skin's ".jpg", the default skin's ".bmp"; failing these the
// default skin's ".jpg", untested.
QString skinFile(const QString& strAppPath, const QString& strSkinPath, int index);

// The same for frame `frame` of the metronome's pendulum, "tictac00" to "tictac35".
QString skinTicTac(const QString& strAppPath, const QString& strSkinPath, int frame);

// The indices of the pictures the windows use by name.
namespace skin {
inline constexpr int kAstuce = 10;
inline constexpr int kFond = 34;
inline constexpr int kLogo = 8;
inline constexpr int kApropos = 9;
inline constexpr int kMancheFond = 68;
}  // namespace skin

}  // namespace vt
