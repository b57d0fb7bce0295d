// chords KEY TYPE: the fingerings of a chord as the chord dictionary finds
// them, best first, as one JSON object. TYPE is the standard list's text
// ("maj", "7", "min7 5b"); --create builds the chord as the create mode does,
// from a base and up to seven degree entries.
#include <iostream>
#include <memory>
#include <sstream>

#include "command.h"
#include "document_json.h"
#include "formats/string_table.h"
#include "music/accord_nom.h"
#include "music/accord_recherche.h"
#include "music/accord_types.h"
#include "player/accords.h"

namespace vt::cli {
namespace {

constexpr int kTonalitéInconnue = 116;
constexpr int kTypeInconnu = 117;
constexpr int kAucunDoigté = 115;

struct ChordsArgs {
  std::string tonalité;
  std::string type;
  std::vector<int> accordage{64, 59, 55, 50, 45, 40};  // highest string first, as in vt.ini
  std::vector<int> paramètres{4, 9, 10, 2, 50, 12, 3};
  std::string création;
};

std::vector<std::string> champs(const std::string& texte) {
  std::vector<std::string> c;
  std::stringstream in(texte);
  std::string champ;
  while (std::getline(in, champ, ','))
    c.push_back(champ);
  if (!texte.empty() && texte.back() == ',') c.emplace_back();
  return c;
}

// The create mode's name: the base, then the degree lists 2 to 13 in order.
std::optional<std::string> nomCréé(int tonalité, const std::string& texte) {
  const auto c = champs(texte);
  if (c.empty() || c.size() > 1 + kDegrésAccord.size()) return std::nullopt;
  const auto base = indexBaseAccord(c[0]);
  if (!base) return std::nullopt;
  std::array<int, 7> choix{};
  for (std::size_t i = 1; i < c.size(); ++i) {
    const auto x = indexChoixDegré(kDegrésAccord[i - 1], c[i]);
    if (!x) return std::nullopt;
    choix[i - 1] = *x;
  }
  return nomAccordCréé(tonalité, *base, choix);
}

void chercher(Context& ctx, const ChordsArgs& a) {
  const auto tonalité = indexTonalité(a.tonalité);
  if (!tonalité) {
    refuse(ctx, kTonalitéInconnue, a.tonalité);
    return;
  }
  std::string nom;
  if (!a.création.empty()) {
    const auto n = nomCréé(*tonalité, a.création);
    if (!n) {
      refuse(ctx, kTypeInconnu, a.création);
      return;
    }
    nom = *n;
  } else {
    const auto type = indexTypeAccord(a.type);
    if (!type) {
      refuse(ctx, kTypeInconnu, a.type);
      return;
    }
    nom = nomAccordStandard(*tonalité, *type);
  }

  // The strings lowest first, as the dictionary hands them to the library.
  const std::vector<int> midi(a.accordage.rbegin(), a.accordage.rend());
  std::array<std::string, 8> cordes;
  const bool compte = midi.size() >= kCordesRechercheMin && midi.size() <= kCordesRechercheMax;
  for (std::size_t i = 0; compte && i < midi.size(); ++i)
    cordes[i] = std::string(1, static_cast<char>(hauteurDeNote(midi[i])));
  const auto& p = a.paramètres;
  const auto octet = [&](std::size_t i) { return static_cast<std::uint8_t>(p[i]); };
  std::vector<int> construction;
  GetAccordConstruction(construction, nom);
  PositionsAccord positions;
  SetAccordParametres(octet(0), octet(1), octet(2), octet(3), octet(4), octet(5), octet(6));
  GetAccordPositions(positions, nom, static_cast<std::uint8_t>(compte ? midi.size() : 0), cordes);

  const auto accord = lisNomAccord(nom);
  Json tons = Json::array();
  for (const TonAccord& t : accord->tons)
    tons.push_back(
        {{"degree", t.degré},
         {"note",
          kNomsNotes[static_cast<std::size_t>((accord->fondamentale + t.demiTons) % kDemiTons)]},
         {"essential", t.essentiel}});
  Json renversements = Json::array();
  for (const auto& ligne : positions) {
    Doigté d;
    std::copy(ligne.begin(), ligne.end(), d.cases.begin());
    renversements.push_back(renversement(d, midi, accord->fondamentale));
  }
  const Json sortie = {{"name", nom},
                       {"construction", construction},
                       {"tones", tons},
                       {"positions", positions},
                       {"inversions", renversements}};
  std::cout << sortie.dump() << '\n';
  if (positions.empty()) std::cerr << loadString(kAucunDoigté, ctx.setLang) << '\n';
}

const CommandRegistration kChords("chords", [](CLI::App& app, Context& ctx) {
  auto a = std::make_shared<ChordsArgs>();
  auto* sub = app.add_subcommand(
      "chords",
      "fingerings of a chord as JSON, best first: name, construction (the pitch number, 0 = A, "
      "of each semitone above the root, -1 when absent), tones, positions (frets lowest string "
      "first, -1 not played) and inversions");
  sub->add_option("KEY", a->tonalité, "the key: C, C#, Db, ...")->required();
  auto* type = sub->add_option("TYPE", a->type,
                               "the chord type as the dictionary lists it: maj, min, 7, maj7, "
                               "min7, 6, min6, 9, 11, 13, 7sus2, 7sus4, \"maj7 3b\", \"min7 5b\", "
                               "sus, sus2, sus4, dim, aug");
  sub->add_option("--tuning", a->accordage,
                  "MIDI notes of the open strings, highest string first (default the guitar's "
                  "64,59,55,50,45,40); 4 to 7 strings")
      ->delimiter(',')
      ->check(CLI::Range(0, 127));
  sub->add_option("--params", a->paramètres,
                  "MAXSPAN,ADJ_SCORE,OPENS_SCORE,POSITION_SCORE,ROOT_SCORE,SPAN_SCORE,TSPAN_SCORE "
                  "(default 4,9,10,2,50,12,3)")
      ->delimiter(',')
      ->expected(7)
      ->check(CLI::Range(0, 255));
  auto* créer = sub->add_option(
      "--create", a->création,
      "a created chord instead of TYPE: the base (M, m, sus2, sus4, dim, aug) and the entries of "
      "the degree lists 2, 4, 6, 7, 9, 11, 13 in order (empty, dim, add or aug, with or without "
      "the degree): m,,,,add7 is Cm7");
  type->excludes(créer);
  sub->callback([&ctx, a, sub] {
    if (a->type.empty() && a->création.empty()) {
      std::cerr << "chords: give a TYPE or --create\n" << sub->help();
      ctx.exitCode = kUsage;
      return;
    }
    chercher(ctx, *a);
  });
});

}  // namespace
}  // namespace vt::cli
