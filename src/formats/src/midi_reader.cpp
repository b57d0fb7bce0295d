#include "formats/midi_reader.h"

#include <algorithm>

#include "formats/hex.h"
#include "formats/string_table.h"
#include "formats/file_io.h"

namespace vt {

namespace {

// Far beyond any real piece, and small enough that tick * 48 never overflows.
constexpr std::int64_t kTickMax = std::int64_t{1} << 40;

std::uint32_t be32(std::span<const byt> o, std::size_t i) {
  return (std::uint32_t{o[i]} << 24) | (std::uint32_t{o[i + 1]} << 16) |
         (std::uint32_t{o[i + 2]} << 8) | o[i + 3];
}

class Lecteur {
 public:
  Lecteur(std::span<const byt> o, std::size_t début, std::size_t fin)
      : m_o(o), m_pos(début), m_fin(fin) {}
  bool fini() const { return m_pos >= m_fin; }
  std::size_t pos() const { return m_pos; }
  std::size_t reste() const { return m_fin - m_pos; }
  byt regarder() const { return m_o[m_pos]; }
  byt lire() { return m_o[m_pos++]; }
  void sauter(std::size_t n) { m_pos += std::min(n, reste()); }

  enum class Vlq { Ok, Fin, TropLong };
  // At most four bytes, as the format allows.
  Vlq quantité(std::uint32_t& n) {
    n = 0;
    for (int i = 0; i < 4; ++i) {
      if (fini()) return Vlq::Fin;
      const byt b = lire();
      n = (n << 7) | (b & 0x7F);
      if (b < 0x80) return Vlq::Ok;
    }
    return Vlq::TropLong;
  }

 private:
  std::span<const byt> m_o;
  std::size_t m_pos;
  std::size_t m_fin;
};

void méta(PisteMidiLue& out, int type, std::span<const byt> d, std::int64_t tick,
          byt& corde, byt& attribut) {
  switch (type) {
    case 0x10: {
      // Track header: track number, capo, then one open string per string.
      const int cordes = static_cast<int>(d.size()) - 2;
      if (cordes < 1 || cordes > kMaxCordes) return;
      out.tête.présente = true;
      out.tête.cordes = cordes;
      out.tête.piste = d[0];
      out.tête.capodastre = d[1];
      for (int c = 1; c <= cordes; ++c) out.tête.ouvertes[static_cast<std::size_t>(c)] = d[static_cast<std::size_t>(c + 1)];
      return;
    }
    case 0x11:
      if (d.empty()) return;
      corde = static_cast<byt>(d[0] + 1);
      attribut = d.size() >= 2 ? d[1] : 0;
      return;
    case 0x12:
      out.accords.push_back({tick, std::string(d.begin(), d.end())});
      return;
    case 0x51:
      if (d.size() >= 3) out.tempos.push_back({tick, (d[0] << 16) | (d[1] << 8) | d[2], 0});
      return;
    case 0x58:
      if (d.size() >= 2) out.signatures.push_back({tick, d[0], d[1]});
      return;
    case 0x59:
      if (d.size() >= 2) out.tonalités.push_back({tick, static_cast<std::int8_t>(d[0]), d[1]});
      return;
    default:
      break;
  }
  if (type >= 0x01 && type <= 0x0F) {
    std::string texte(d.begin(), d.end());
    if (type == 0x03 && !out.aNom) {
      out.nom = texte;
      out.aNom = true;
    }
    out.textes.push_back({tick, static_cast<byt>(type), std::move(texte)});
  }
}

}  // namespace

InterchangeResult lireMidi(std::span<const byt> o, MidiFichier& out) {
  out = MidiFichier{};
  if (o.size() < 4 || o[0] != 'M' || o[1] != 'T' || o[2] != 'h' || o[3] != 'd')
    return InterchangeResult::refus(kMsgMidiInvalide);
  if (o.size() < 14) return InterchangeResult::refus(kMsgMidiErreur);
  out.format = (o[8] << 8) | o[9];
  out.pistesDéclarées = (o[10] << 8) | o[11];
  out.division = (o[12] << 8) | o[13];
  if (out.pistesDéclarées == 0) return InterchangeResult::refus(kMsgMidiAucunePiste);
  // Ticks per quarter note; a time code division (high bit set) or 0 cannot be used.
  if (out.division == 0 || out.division >= 0x8000) return InterchangeResult::refus(kMsgMidiErreur);

  // The chunks follow the header, whose length says where it ends.
  std::size_t pos = 8 + std::clamp<std::size_t>(be32(o, 4), 6, o.size());
  while (pos + 8 <= o.size()) {
    const bool piste = o[pos] == 'M' && o[pos + 1] == 'T' && o[pos + 2] == 'r' && o[pos + 3] == 'k';
    const std::size_t taille = std::min<std::size_t>(be32(o, pos + 4), o.size() - pos - 8);
    if (piste) out.pistes.push_back({pos + 8, taille});
    pos += 8 + taille;
  }
  if (out.pistes.empty()) return InterchangeResult::refus(kMsgMidiAucunePiste);
  out.octets.assign(o.begin(), o.end());
  InterchangeResult r;
  if (out.format == 0) r.notices.push_back(kMsgMidiFormat0);  // channels are chosen, not tracks
  return r;
}

InterchangeResult ouvrirMidi(const std::string& chemin, MidiFichier& out) {
  const FileRead lu = readWholeFile(chemin);
  if (!lu.ok()) return InterchangeResult::refus(lu.message, lu.détail);
  return lireMidi(lu.octets, out);
}

InterchangeResult lirePisteMidi(const MidiFichier& f, int index, PisteMidiLue& out,
                                const MidiProgression& progression) {
  out = PisteMidiLue{};
  out.programmes.fill(-1);
  if (index < 0 || static_cast<std::size_t>(index) >= f.pistes.size())
    return InterchangeResult::refus(kMsgMidiErreur);
  const MidiFichier::Chunk& ch = f.pistes[static_cast<std::size_t>(index)];
  Lecteur l(f.octets, ch.début, ch.début + ch.taille);
  std::int64_t tick = 0;
  int statut = 0;  // running status; 0 before the first channel message
  byt corde = 0, attribut = 0;
  std::size_t prochainRapport = 0;

  while (!l.fini()) {
    if (progression && l.pos() - ch.début >= prochainRapport) {
      progression(l.pos() - ch.début, ch.taille);
      prochainRapport += 4096;
    }
    std::uint32_t delta = 0;
    const auto v = l.quantité(delta);
    if (v == Lecteur::Vlq::Fin) break;
    if (v == Lecteur::Vlq::TropLong) return InterchangeResult::refus(kMsgMidiErreur);
    tick = std::min(tick + delta, kTickMax);
    out.fin = tick;
    if (l.fini()) break;

    int st = l.regarder();
    if (st < 0x80) {
      if (statut == 0) return InterchangeResult::refus(kMsgMidiCommandeInconnue, hexPad2(static_cast<std::uint32_t>(st)));
      st = statut;
    } else {
      l.lire();
      if (st < 0xF0) statut = st;
    }
    ++out.événements;
    const int canal = st & 0x0F;
    switch (st >> 4) {
      case 0x8:
      case 0x9: {
        if (l.reste() < 2) return {};
        const byt hauteur = l.lire() & 0x7F;
        const byt vélocité = l.lire() & 0x7F;
        MidiEvenement e;
        e.tick = tick;
        e.canal = static_cast<byt>(canal);
        e.hauteur = hauteur;
        e.vélocité = (st >> 4) == 0x8 ? 0 : vélocité;
        if (e.vélocité > 0) {
          // The RMTF event before a note belongs to that note alone.
          e.corde = corde;
          e.attribut = attribut;
          corde = attribut = 0;
          ++out.notesParCanal[static_cast<std::size_t>(canal)];
        }
        out.notes.push_back(e);
        break;
      }
      case 0xA:
      case 0xB:
      case 0xE:
        l.sauter(2);
        break;
      case 0xC:
        if (!l.fini()) {
          const int programme = l.lire() & 0x7F;
          if (out.programmes[static_cast<std::size_t>(canal)] < 0)
            out.programmes[static_cast<std::size_t>(canal)] = programme;
        }
        break;
      case 0xD:
        l.sauter(1);
        break;
      default: {  // 0xF
        if (st == 0xF0 || st == 0xF7) {
          // System exclusive, with its length; one without its end byte is
          // skipped all the same.
          std::uint32_t n = 0;
          const auto vs = l.quantité(n);
          if (vs == Lecteur::Vlq::TropLong) return InterchangeResult::refus(kMsgMidiErreur);
          l.sauter(n);
          break;
        }
        if (st != 0xFF)
          return InterchangeResult::refus(kMsgMidiCommandeInconnue, hexPad2(static_cast<std::uint32_t>(st)));
        if (l.fini()) return {};
        const int type = l.lire();
        std::uint32_t n = 0;
        const auto vm = l.quantité(n);
        if (vm == Lecteur::Vlq::TropLong) return InterchangeResult::refus(kMsgMidiErreur);
        const std::size_t taille = std::min<std::size_t>(n, l.reste());
        const std::span<const byt> données(f.octets.data() + l.pos(), taille);
        l.sauter(taille);
        if (type == 0x2F) {
          if (progression) progression(ch.taille, ch.taille);
          return {};
        }
        méta(out, type, données, tick, corde, attribut);
        break;
      }
    }
  }
  if (progression) progression(ch.taille, ch.taille);
  return {};
}

std::vector<MidiSource> sourcesMidi(const MidiFichier& f, int setLang) {
  std::vector<MidiSource> sources;
  const std::string sansNom = loadString(kMsgMidiSansNom, setLang);
  if (f.format == 0) {
    PisteMidiLue lue;
    lirePisteMidi(f, 0, lue);  // a listing shows what could be read
    for (int c = 1; c <= 16; ++c) {
      MidiSource s;
      s.numéro = c;
      s.libellé = loadString(kMsgMidiCanal, setLang) + std::to_string(c);
      s.nom = lue.aNom ? lue.nom : sansNom;
      s.événements = lue.événements;
      s.notes = lue.notesParCanal[static_cast<std::size_t>(c - 1)];
      sources.push_back(std::move(s));
    }
    return sources;
  }
  for (std::size_t i = 0; i < f.pistes.size(); ++i) {
    PisteMidiLue lue;
    lirePisteMidi(f, static_cast<int>(i), lue);
    MidiSource s;
    s.numéro = static_cast<int>(i);
    s.nom = lue.aNom ? lue.nom : sansNom;
    s.libellé = s.nom + ": " + std::to_string(i);
    s.événements = lue.événements;
    for (int n : lue.notesParCanal) s.notes += n;
    sources.push_back(std::move(s));
  }
  return sources;
}

}  // namespace vt
