#include "formats/ascii_export.h"

#include <algorithm>
#include <span>
#include <vector>

#include "arrondi.h"
#include "document/tablature.h"
#include "formats/file_io.h"

namespace vt {

namespace {

constexpr const char* kFinLigne = "\r\n";

// Writes over the line from column c, keeping its length.
void surcharger(std::string& ligne, std::int64_t c, std::string_view texte) {
  for (std::size_t i = 0; i < texte.size(); ++i) {
    const std::int64_t k = c + static_cast<std::int64_t>(i);
    if (k >= 0 && k < static_cast<std::int64_t>(ligne.size()))
      ligne[static_cast<std::size_t>(k)] = texte[i];
  }
}

const char* texteEffet(int e) {
  switch (e) {
    case effet::kSlideUp: return "/";
    case effet::kSlideDown: return "\\";
    case effet::kHammerOn: return "H";
    case effet::kPullOff: return "P";
    case effet::kVibrato: return "~";
    case effet::kBendUp: return "B";
    case effet::kBendUpDown: return "U";
    case effet::kBendReturn: return "R";
    case effet::kBendDown: return "D";
    case effet::kTremolo: return "%";
    case effet::kTrill: return "tr";
    case effet::kLiaison: return "^";
    default: return "";
  }
}

}  // namespace

std::string io_enregistrer_txt(const CVantoroTablature& doc, int p, int largeurMax) {
  std::string out;
  const std::pair<const char*, const std::string*> têtes[] = {{"Titre: ", &doc.titre},
                                                              {"Sous-titre: ", &doc.SousTitre},
                                                              {"Auteur: ", &doc.Auteur},
                                                              {"Copyright: ", &doc.Copy},
                                                              {"Commentaires: ", &doc.Comments}};
  for (const auto& [label, champ] : têtes)
    if (!champ->empty()) out += std::string(label) + *champ + kFinLigne;
  out += "Tempo: " + std::to_string(doc.tempo) + kFinLigne + kFinLigne;
  if (!doc.hasPiste(p)) return out;

  // Line 0 carries the signatures, lines 1..n the strings, line n + 1 is blank.
  const int n = doc.getGuitareNbrCordes(p);
  std::vector<std::string> lignes(static_cast<std::size_t>(n) + 2);
  std::string& haut = lignes.front();
  std::string& bas = lignes.back();
  auto corde = [&](int c) -> std::string& { return lignes[static_cast<std::size_t>(c)]; };
  auto estMilieu = [&](int c) { return c == n / 2 || c == n / 2 + 1; };
  std::vector<int> colonnes;  // columns of each bar

  for (int m = 1; m <= doc.getMesureLast(); ++m) {
    const int W = doc.getMesureLargeur(m);
    const int v = doc.getOnPageViewMode(p, m);
    const int k = std::max(W / v, 1);
    const std::size_t départ = corde(1).size();

    // Any other left type is drawn as a plain line.
    const int typeGauche = doc.getMesureLoopGaucheType(m);
    int gauche = 1;
    for (int c = 1; c <= n; ++c) {
      if (typeGauche == barre::kRepetition)
        corde(c) += estMilieu(c) ? "||*" : "||-";
      else if (typeGauche == barre::kDouble)
        corde(c) += "||";
      else
        corde(c) += "|";
    }
    if (typeGauche == barre::kRepetition) gauche = 3;
    else if (typeGauche == barre::kDouble) gauche = 2;

    // The signature stands above the bar's first dash when it changes; a bar
    // too narrow for its label is widened to hold it.
    std::string label;
    if (m == 1 || doc.getMesureSignatureUp(m) != doc.getMesureSignatureUp(m - 1) ||
        doc.getMesureSignatureDn(m) != doc.getMesureSignatureDn(m - 1)) {
      label = std::to_string(doc.getMesureSignatureUp(m)) + "/" +
              std::to_string(doc.getMesureSignatureDn(m));
    }
    const std::size_t tirets = std::max<std::size_t>(static_cast<std::size_t>(3 * k), label.size());
    haut.append(static_cast<std::size_t>(gauche), ' ');
    bas.append(static_cast<std::size_t>(gauche), ' ');
    const std::size_t s = corde(1).size();
    for (int c = 1; c <= n; ++c) corde(c).append(tirets, '-');
    haut += label;
    haut.append(tirets - label.size(), ' ');
    bas.append(tirets, ' ');

    int droite = 0;
    switch (doc.getMesureLoopDroiteType(m)) {
      case barre::kDouble:
        droite = 1;
        for (int c = 1; c <= n; ++c) corde(c) += "|";
        break;
      case barre::kRepetition:
        droite = 2;
        for (int c = 1; c <= n; ++c) corde(c) += estMilieu(c) ? "*|" : "-|";
        break;
      case barre::kFinale:
        droite = 2;
        for (int c = 1; c <= n; ++c) corde(c) += "||";
        break;
      default:
        break;
    }
    haut.append(static_cast<std::size_t>(droite), ' ');
    bas.append(static_cast<std::size_t>(droite), ' ');

    for (int c = 1; c <= n; ++c) {
      const OneBased<tNote>* notes = doc.notes(p, m, c);
      if (notes == nullptr) continue;
      for (const tNote& note : *notes) {
        // X / v * 3 + s, rounded half to even as a whole.
        const std::int64_t col = detail::arrondiPair(
            std::int64_t{note.intX} * 3 + static_cast<std::int64_t>(s) * v, v);
        if (note.bytCase < 10)
          surcharger(corde(c), col + 1, std::to_string(note.bytCase));
        else if (note.bytCase < 100)
          surcharger(corde(c), col, std::to_string(note.bytCase));
        surcharger(corde(c), col + 2, texteEffet(note.bytEffet));
      }
    }
    colonnes.push_back(static_cast<int>(corde(1).size() - départ));
  }

  // Blocks: as many bars as fit in the width; a wider bar stands alone.
  std::size_t o = 0, a = 0;
  auto vider = [&]() {
    if (a == 0) return;
    for (std::size_t i = 0; i < lignes.size(); ++i) {
      const bool cordeLigne = i >= 1 && i <= static_cast<std::size_t>(n);
      out += lignes[i].substr(o, a) + (cordeLigne ? "|" : " ") + kFinLigne;
    }
    out += kFinLigne;
    o += a;
    a = 0;
  };
  for (int cols : colonnes) {
    if (a + static_cast<std::size_t>(cols) > static_cast<std::size_t>(std::max(largeurMax, 0))) vider();
    a += static_cast<std::size_t>(cols);
  }
  vider();
  return out;
}

InterchangeResult exporterTxt(const CVantoroTablature& doc, int piste, const std::string& chemin,
                              int cfgASCIILargeur) {
  const std::string texte = io_enregistrer_txt(doc, piste, cfgASCIILargeur);
  const std::span<const std::uint8_t> octets(reinterpret_cast<const std::uint8_t*>(texte.data()),
                                             texte.size());
  if (const std::string erreur = writeFileAtomically(chemin, octets); !erreur.empty())
    return InterchangeResult::refus(msg::kEcritureImpossible, erreur);
  return {};
}

}  // namespace vt
