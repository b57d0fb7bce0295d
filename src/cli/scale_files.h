// What the scale subcommands share: the scale file beside the program (or
// another one named on the command line), a scale found by its name, the
// kind of a record, and the tuning of --tuning.
#pragma once

#include <iostream>
#include <nlohmann/json.hpp>
#include <optional>
#include <sstream>
#include <string>

#include "app_path.h"
#include "command.h"
#include "document/cp1252.h"
#include "document/records.h"
#include "formats/string_table.h"
#include "music/gamme.h"
#include "music/gamme_texte.h"
#include "music/gammes.h"

namespace vt::cli {

inline constexpr int kGammeInconnue = 2820;
inline constexpr int kTonalitéInconnue = 2821;
inline constexpr int kNoteInconnue = 2822;
inline constexpr int kAccordageIncorrect = 2823;

// The file named, or "scales.dat" in the program's folder. A file that cannot
// be read is refused with the start-up's message ("The file ... is missing!").
inline std::optional<FichierGammes> lireGammes(Context& ctx, const std::string& nommé) {
  const std::filesystem::path fichier =
      nommé.empty() ? dossierProgramme() / kFichierGammes : std::filesystem::path(nommé);
  FichierGammes f = FichierGammes::load(fichier);
  if (f.message() != 0) {
    std::cerr << loadString(3000, ctx.setLang) << fichier.string() << loadString(3001, ctx.setLang)
              << '\n';
    ctx.exitCode = kRefused;
    return std::nullopt;
  }
  return f;
}

// A JSON list with one element a line: valid JSON that reads like a table.
inline void écrireListe(const nlohmann::ordered_json& liste) {
  std::cout << '[';
  for (std::size_t i = 0; i < liste.size(); ++i)
    std::cout << (i == 0 ? "\n" : ",\n") << liste[i].dump();
  std::cout << (liste.empty() ? "]\n" : "\n]\n");
}

// "mode", "chord", "single" (the one-note record) or "scale".
inline std::string genreGamme(const tGamme& g, int setLang) {
  if (estMode(g)) return "mode";
  if (estAccord(g, setLang)) return "chord";
  const std::string nom = cp1252ToUtf8(nomGamme(g, setLang));
  if (titreGamme(nom, "", setLang).empty()) return "single";
  return "scale";
}

// A record by its name in the language (then in the other one, then without
// regard to case), or by its number. 0 when none.
inline int chercheGamme(const FichierGammes& f, const std::string& nom, int setLang) {
  const auto minuscules = [](std::string s) {
    for (char& c : s)
      c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return s;
  };
  const int autre = setLang == kLangFrançais ? kLangAnglais : kLangFrançais;
  for (const int lang : {setLang, autre})
    for (int g = 1; g <= f.count(); ++g)
      if (cp1252ToUtf8(nomGamme(f.gamme(g), lang)) == nom) return g;
  for (const int lang : {setLang, autre})
    for (int g = 1; g <= f.count(); ++g)
      if (minuscules(cp1252ToUtf8(nomGamme(f.gamme(g), lang))) == minuscules(nom)) return g;
  if (!nom.empty() && nom.size() < 6 && nom.find_first_not_of("0123456789") == std::string::npos) {
    const int n = std::stoi(nom);
    if (n >= 1 && n <= f.count()) return n;
  }
  return 0;
}

// --tuning: the open strings from string 1, as MIDI numbers or names with
// their octave, separated by commas ("64,59,55,50,45,40" or "E4,B3,G3,D3,A2,E2").
inline std::optional<tGuitare> accordage(Context& ctx, const std::string& texte, tGuitare guitare) {
  if (texte.empty()) return guitare;
  std::vector<int> cordes;
  std::stringstream flux(texte);
  std::string morceau;
  while (std::getline(flux, morceau, ',')) {
    const auto note = noteDeTexte(morceau);
    if (!note) {
      refuse(ctx, kAccordageIncorrect, morceau.empty() ? texte : morceau);
      return std::nullopt;
    }
    cordes.push_back(*note);
  }
  if (cordes.empty() || cordes.size() > 7) {
    refuse(ctx, kAccordageIncorrect, texte);
    return std::nullopt;
  }
  guitare.nbrCordes = static_cast<byt>(cordes.size());
  guitare.corde = {};
  for (std::size_t s = 0; s < cordes.size(); ++s)
    guitare.corde[s + 1] = static_cast<byt>(cordes[s]);
  return guitare;
}

}  // namespace vt::cli
