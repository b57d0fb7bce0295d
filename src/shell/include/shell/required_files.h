// The nine files the program cannot start without, in the order they are
// checked: the scale dictionary, the help's contents and first page in both
// languages, the instrument catalogue, the two tip files and the music font.
#pragma once

#include <QString>
#include <array>
#include <optional>

namespace vt {

inline constexpr std::array<const char*, 9> kFichiersRequis = {
    "scales.dat",         "help/fr/contents.txt", "help/en/contents.txt",
    "help/fr/index.html", "help/en/index.html",   "vt.ini",
    "tipofday.ini",       "tipofdayen.ini",       "musical.ttf",
};

// True when `strAppPath` + `nom` exists.
bool checkFile(const QString& strAppPath, const QString& nom);

// The full path of the first required file that is missing, if any.
std::optional<QString> premierFichierManquant(const QString& strAppPath);

// The message that names it: string 3000, the path, string 3001.
QString messageFichierManquant(const QString& chemin, int setLang);

}  // namespace vt
