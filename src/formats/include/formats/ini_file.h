// A profile file ("[section]" lines and "key=value" lines) read the way the
// Windows profile calls read it: sections and keys compare without regard to
// ASCII case, the first section and the first key of a name win, blanks around
// names and values are dropped, a value wrapped in matching quotes loses them,
// lines starting with ";" or "#" are comments, LF and CR LF both end a line.
// A missing file reads as an empty one: every query answers its default.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vt {

class IniFile {
 public:
  IniFile() = default;

  static IniFile fromText(std::string_view texte);
  // The file's bytes as they stand; a missing or unreadable file gives an empty profile.
  static IniFile load(const std::filesystem::path& fichier);

  // The value, or `défaut` when the section or the key is absent.
  std::string getPrivateProfileString(std::string_view section, std::string_view clé,
                                      std::string_view défaut) const;
  // `défaut` when the key is absent or its value empty; otherwise the leading
  // integer of the value (decimal, or hexadecimal after "0x"), 0 when there is
  // none, saturated to the range of int.
  int getPrivateProfileInt(std::string_view section, std::string_view clé, int défaut) const;

  bool hasKey(std::string_view section, std::string_view clé) const;

 private:
  struct Section {
    std::string nom;
    std::vector<std::pair<std::string, std::string>> clés;
  };
  const std::string* find(std::string_view section, std::string_view clé) const;

  std::vector<Section> m_sections;
};

}  // namespace vt
