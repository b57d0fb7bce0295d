#include "formats/ascii_import.h"

#include <algorithm>

#include "document/tablature.h"
#include "formats/file_io.h"

namespace vt {

namespace {

bool chiffre(char c) { return c >= '0' && c <= '9'; }
bool point(char c) { return c == 'o' || c == '*' || c == ':'; }
// What a column of tablature may hold: dashes, bar lines, repeat dots, frets
// and the effect signs written after them, ours (upper case, "%", "tr", "^")
// among them although only the lower-case letters are read back.
bool deTablature(char c) {
  if (c == '-' || c == '|' || point(c) || chiffre(c)) return true;
  static constexpr std::string_view kSignes = "hpbr/\\~^x%tHPBRUD";
  return kSignes.find(c) != std::string_view::npos;
}

std::vector<std::string_view> lignesDe(std::string_view texte) {
  std::vector<std::string_view> lignes;
  std::size_t début = 0;
  for (std::size_t i = 0; i <= texte.size(); ++i) {
    if (i == texte.size() || texte[i] == '\n' || texte[i] == '\r') {
      lignes.push_back(texte.substr(début, i - début));
      if (i + 1 < texte.size() && texte[i] == '\r' && texte[i + 1] == '\n') ++i;
      début = i + 1;
    }
  }
  return lignes;
}

std::string_view sansBlancsAFin(std::string_view s) {
  while (!s.empty() && (s.back() == ' ' || s.back() == '\t')) s.remove_suffix(1);
  return s;
}

// Reads the columns of the blocks into the document.
class Convertisseur {
 public:
  Convertisseur(CVantoroTablature& doc, int base) : m_doc(doc), m_base(base) {}

  bool bloc(const AsciiBloc& b) {
    m_b = &b;
    std::size_t fin = 0;
    for (const std::string& l : b.lignes) fin = std::max(fin, l.size());
    std::size_t j = 0;
    while (j < fin) {
      if (barre(j)) {
        const bool pointsAvant = j > 0 && points(j - 1);
        std::size_t k = j;
        while (k < fin && barre(k)) ++k;
        // "||" on a line is a double line; lines whose single "|" stand in
        // neighbouring columns (after a two-digit fret) are one bar line.
        bool double_ = false;
        for (std::size_t c = j; c + 1 < k; ++c)
          for (int i = 0; i < 6; ++i)
            double_ = double_ || (car(i, c) == '|' && car(i, c + 1) == '|');
        const bool pointsAprès = k < fin && points(k);
        if (pointsAprès) ++k;
        if (!ligneDeBarre(pointsAvant, double_, pointsAprès)) return false;
        j = k;
        continue;
      }
      if (points(j) && j + 1 < fin && barre(j + 1)) {  // read with the bar line
        ++j;
        continue;
      }
      if (vide(j)) {
        m_x += m_base;
        ++j;
        continue;
      }
      // Effects first: they belong to the notes already placed.
      for (int i = 0; i < 6; ++i) {
        const int e = codeEffet(car(i, j));
        if (e != 0 && j > 0 && chiffre(car(i, j - 1))) {
          const int n = m_doc.getNoteLast(1, m_mesure, i + 1);
          if (n > 0) m_doc.setNoteEffet(1, m_mesure, i + 1, n, static_cast<byt>(e));
        }
      }
      bool deux = false;
      for (int i = 0; i < 6; ++i) deux = deux || (chiffre(car(i, j)) && chiffre(car(i, j + 1)));
      bool note = false;
      for (int i = 0; i < 6; ++i) note = note || chiffre(car(i, j)) || (deux && chiffre(car(i, j + 1)));
      if (note && m_x > m_doc.getMesureLargeur(m_mesure) - m_base) {
        if (!nouvelleMesure()) return false;
      }
      for (int i = 0; i < 6; ++i) {
        int frette = -1;
        if (chiffre(car(i, j))) {
          frette = car(i, j) - '0';
          if (chiffre(car(i, j + 1))) frette = frette * 10 + (car(i, j + 1) - '0');
        } else if (deux && chiffre(car(i, j + 1))) {
          // Beside a two-digit fret, a one-digit fret written under its second
          // digit sounds with it.
          frette = car(i, j + 1) - '0';
        }
        if (frette < 0) continue;
        const int n = m_doc.setNoteWhole(1, m_mesure, i + 1, m_x, frette, m_base);
        if (n > 0) m_doc.setNoteVolume(1, m_mesure, i + 1, n, 127);
      }
      m_x += m_base;
      j += deux ? 2 : 1;
    }
    return true;
  }

 private:
  char car(int i, std::size_t j) const {
    const std::string& l = m_b->lignes[static_cast<std::size_t>(i)];
    return j < l.size() ? l[j] : ' ';
  }
  bool barre(std::size_t j) const {
    for (int i = 0; i < 6; ++i)
      if (car(i, j) == '|') return true;
    return false;
  }
  bool points(std::size_t j) const {
    bool un = false;
    for (int i = 0; i < 6; ++i) {
      const char c = car(i, j);
      if (point(c))
        un = true;
      else if (c != '-' && c != ' ')
        return false;
    }
    return un;
  }
  bool vide(std::size_t j) const {
    for (int i = 0; i < 6; ++i)
      if (car(i, j) != '-' && car(i, j) != ' ') return false;
    return true;
  }
  static int codeEffet(char c) {
    switch (c) {
      case 'h': return effet::kHammerOn;
      case 'p': return effet::kPullOff;
      case '/': return effet::kSlideUp;
      case '\\': return effet::kSlideDown;
      case 'b': return effet::kBendUp;
      case 'r': return effet::kBendReturn;
      default: return 0;
    }
  }

  bool nouvelleMesure() {
    if (!m_doc.addMesure()) return false;
    m_mesure = m_doc.getMesureLast();
    m_x = 0;
    return true;
  }

  // A bar line closes the bar that has begun, and the next bar is taken at
  // once. Repeat dots before it, or a second line with no dots after them,
  // end a repeat at the bar it closes; dots after it start one at the bar
  // it opens ("||o" starts a repeat and ends none). A repeat end at the very
  // start of a line closes the bar before.
  bool ligneDeBarre(bool pointsAvant, bool double_, bool pointsAprès) {
    const bool fin = pointsAvant || (double_ && !pointsAprès);
    if (m_x > 0) {
      if (fin) finDeReprise(m_mesure);
      if (!nouvelleMesure()) return false;
    } else if (pointsAvant && m_mesure > 1) {
      finDeReprise(m_mesure - 1);
    }
    if (pointsAprès) m_doc.setMesureLoopGaucheType(m_mesure, barre::kRepetition);
    return true;
  }
  void finDeReprise(int m) {
    m_doc.setMesureLoopDroiteType(m, barre::kRepetition);
    m_doc.setMesureLoopDroiteData(m, 1);
  }

  CVantoroTablature& m_doc;
  const int m_base;
  const AsciiBloc* m_b = nullptr;
  int m_mesure = 1;
  int m_x = 0;
};

}  // namespace

bool texteAsciiVide(std::string_view texte) {
  return texte.find_first_not_of(" \t\r\n\f\v") == std::string_view::npos;
}

int rythmeAscii(int index) {
  static constexpr int kTicks[] = {192, 96, 48, 24, 12, 6, 3};
  return index >= 1 && index <= 7 ? kTicks[index - 1] : 0;
}

std::vector<AsciiBloc> trouverBlocsAscii(std::string_view texte) {
  const std::vector<std::string_view> lignes = lignesDe(texte);
  std::vector<AsciiBloc> blocs;
  std::size_t i = 0;
  while (i < lignes.size()) {
    // The next five lines continue the block when they hold dashes too and
    // have tablature in the column where the first line's dashes begin.
    const std::size_t f = lignes[i].find("--");
    bool ok = f != std::string_view::npos && i + 6 <= lignes.size();
    for (std::size_t k = 1; ok && k < 6; ++k) {
      const std::string_view l = lignes[i + k];
      ok = l.find("--") != std::string_view::npos && f < l.size() && deTablature(l[f]);
    }
    // What stands before the dashes is a label of any length ("e|", "High
    // E|", "e ||"), alike on the six lines: a line of words whose dashes come
    // above a tablature's is not its first string.
    const auto avantTablature = [&](std::size_t k) {
      const std::string_view l = lignes[i + k];
      return f > 0 && f - 1 < l.size() && deTablature(l[f - 1]);
    };
    for (std::size_t k = 1; ok && k < 6; ++k)
      ok = avantTablature(k) == avantTablature(0);
    // The block begins left of the dashes with the bar lines, repeat dots and
    // frets that stand there on every line, so that none of them is lost.
    const auto colonne = [&](std::size_t c, bool (*test)(char)) {
      for (std::size_t k = 0; k < 6; ++k) {
        const std::string_view l = lignes[i + k];
        if (!test(c < l.size() ? l[c] : ' ')) return false;
      }
      return true;
    };
    std::size_t s = f;
    while (ok && s > 0 && colonne(s - 1, deTablature)) {
      // A digit on every line right after the label ("1|", "String 1 ")
      // numbers the strings.
      if (colonne(s - 1, chiffre) && (s == 1 || !colonne(s - 2, deTablature))) break;
      --s;
    }
    if (!ok) {
      ++i;
      continue;
    }
    AsciiBloc b;
    for (std::size_t k = 0; k < 6; ++k) {
      const std::string_view l = sansBlancsAFin(lignes[i + k]);
      b.lignes[k] = s < l.size() ? std::string(l.substr(s)) : std::string();
    }
    // Text written after the tablature on a line (a "x3", a remark) is left
    // out: the block ends after its last dash or bar line, and the frets that
    // stand right after it.
    std::size_t fin = 0;
    for (const std::string& l : b.lignes) {
      const std::size_t d = l.find_last_of("-|");
      if (d != std::string::npos) fin = std::max(fin, d + 1);
    }
    for (int k = 0; k < 2; ++k) {
      bool chiffreIci = false;
      for (const std::string& l : b.lignes) chiffreIci = chiffreIci || (fin < l.size() && chiffre(l[fin]));
      if (chiffreIci) ++fin;
    }
    for (std::string& l : b.lignes)
      if (l.size() > fin) l.resize(fin);
    blocs.push_back(std::move(b));
    i += 6;
  }
  return blocs;
}

InterchangeResult convertirAscii(std::string_view texte, const AsciiImportOptions& o,
                                 CVantoroTablature& doc, const std::function<void(int)>& étape) {
  if (étape) étape(kEtapeRechercheBlocs);
  if (texteAsciiVide(texte)) return InterchangeResult::refus(kMsgAsciiVide);
  const std::vector<AsciiBloc> blocs = trouverBlocsAscii(texte);
  if (blocs.empty()) return InterchangeResult::refus(kMsgAsciiCorrompue);
  if (étape) étape(kEtapeConversionAscii);
  doc.initialize(o.guitare, o.patch);
  const int base = std::clamp(o.rythme, 1, kTicksRonde);
  Convertisseur c(doc, base);
  for (const AsciiBloc& b : blocs)
    if (!c.bloc(b)) break;  // the document is full: what fitted stays
  return {};
}

InterchangeResult importerAscii(const std::string& chemin, const AsciiImportOptions& o,
                                CVantoroTablature& doc, const std::function<void(int)>& étape) {
  const FileRead lu = readWholeFile(chemin);
  if (!lu.ok()) return InterchangeResult::refus(lu.message, lu.détail);
  return convertirAscii(
      std::string_view(reinterpret_cast<const char*>(lu.octets.data()), lu.octets.size()), o, doc,
      étape);
}

}  // namespace vt
