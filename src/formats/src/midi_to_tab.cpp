#include "formats/midi_to_tab.h"

#include <algorithm>

#include "arrondi.h"
#include "document/tablature.h"

namespace vt {

void TranscripteurMidi::étendreDébuts() {
  const int last = m_doc.getMesureLast();
  m_débuts.resize(static_cast<std::size_t>(last));
  m_valides = std::min(m_valides, last);
  for (int m = std::max(m_valides, 1); m <= last; ++m) {
    m_débuts[static_cast<std::size_t>(m - 1)] =
        m == 1 ? 0 : m_débuts[static_cast<std::size_t>(m - 2)] + m_doc.getMesureLargeur(m - 1);
  }
  m_valides = last;
}

bool TranscripteurMidi::position(std::int64_t X, int& mesure, int& x) {
  if (X < 0) return false;
  étendreDébuts();
  int last = m_doc.getMesureLast();
  const std::int64_t fin =
      m_débuts[static_cast<std::size_t>(last - 1)] + m_doc.getMesureLargeur(last);
  if (X >= fin) {
    // Bars of the last one's width are added until the one holding X exists.
    const int largeur = m_doc.getMesureLargeur(last);
    if (largeur <= 0) return false;
    const std::int64_t voulue = last + 1 + (X - fin) / largeur;
    if (voulue > kMaxMesures) return false;
    while (last < voulue) {
      if (!m_doc.addMesure()) return false;
      ++last;
    }
    étendreDébuts();
  }
  // The last bar starting at or before X.
  const auto it = std::upper_bound(m_débuts.begin(), m_débuts.end(), X);
  mesure = static_cast<int>(it - m_débuts.begin());
  const std::int64_t local = X - m_débuts[static_cast<std::size_t>(mesure - 1)];
  if (local > 0xFFFF) return false;
  x = static_cast<int>(local);
  return true;
}

void TranscripteurMidi::MIDITonalité2VTBTonalité(std::int64_t X, int sf, int mode) {
  if (sf < -7 || sf > 7) return;
  int m = 0, x = 0;
  if (!position(X, m, x)) return;
  const byt octet = static_cast<byt>(sf + 8 + (mode != 0 ? 64 : 0));
  for (int b = m; b <= m_doc.getMesureLast(); ++b) m_doc.setMesureTonalité(b, octet);
}

void TranscripteurMidi::MIDIAccord2VTBAccord(int piste, std::int64_t X, const std::string& nom,
                                             const OneBased<byt>& frettes) {
  int m = 0, x = 0;
  if (!m_doc.hasPiste(piste) || !position(X, m, x)) return;
  const int n = m_doc.addandplaceMesureAccord(piste, m, x);
  if (n != 0) m_doc.setMesureAccord(piste, m, n, nom.substr(0, kMaxTexte), frettes);
}

void TranscripteurMidi::MIDITexte2VTBTexte(int piste, std::int64_t X, const std::string& texte) {
  int m = 0, x = 0;
  if (texte.empty() || !m_doc.hasPiste(piste) || !position(X, m, x)) return;
  m_doc.setMesureTexte(piste, m, x, texte.substr(0, kMaxTexte), kVrai);
}

int TranscripteurMidi::MIDITempo2VTBTempo(std::int64_t X, std::int64_t us) {
  if (us <= 0) return 0;
  int m = 0, x = 0;
  if (!position(X, m, x)) return 0;
  const int tempo = static_cast<int>(std::clamp<std::int64_t>(detail::arrondiPair(60000000, us), 1, 255));
  return m_doc.setMesureTempo(m, x, static_cast<byt>(tempo)) ? tempo : 0;
}

void TranscripteurMidi::MIDISignature2VTBSignature(std::int64_t X, int up, int dn) {
  if (up <= 0 || dn <= 0) return;
  int m = 0, x = 0;
  if (!position(X, m, x)) return;
  if (m_doc.setMesureSignature(m, up, dn)) m_valides = std::min(m_valides, m);
}

bool TranscripteurMidi::MIDINoteOnNumber2NoteCase(int piste, int note, int durée, std::int64_t X,
                                                  int corde, int attribut, int volume) {
  if (!m_doc.hasPiste(piste)) return false;
  int m = 0, x = 0;
  if (!position(X, m, x)) return false;
  const int cordes = m_doc.getGuitareNbrCordes(piste);
  auto ouverte = [&](int c) { return m_doc.getGuitareCorde(piste, c); };

  int frette = corde >= 1 && corde <= cordes ? note - ouverte(corde) : -1;
  if (frette < 0 || frette >= kCaseVide) {
    // No usable hint: the first string from the top that reaches the note.
    // There is no highest-fret limit, so string 1 takes everything above it.
    corde = 0;
    for (int c = 1; c <= cordes && corde == 0; ++c)
      if (ouverte(c) <= note) corde = c;
    if (corde == 0) return false;
    frette = note - ouverte(corde);
    while (m_doc.searchNote(piste, m, corde, x) != 0) {
      if (++corde > cordes) return false;
      frette = note - ouverte(corde);
      if (frette < 0) return false;
    }
  }
  const int n = m_doc.setNoteWhole(piste, m, corde, x, frette, std::max(durée, 0));
  if (n == 0) return false;
  m_doc.setNoteVolume(piste, m, corde, n, static_cast<byt>(std::clamp(volume, 0, 127)));

  auto poserEffet = [&](byt e) { m_doc.setNoteEffet(piste, m, corde, n, e); };
  auto poserAttaque = [&](byt a) { m_doc.setNoteAttaque(piste, m, corde, n, a); };
  switch (attribut) {
    case 1: poserEffet(effet::kHammerOn); break;
    case 2: poserEffet(effet::kPullOff); break;
    case 3: poserEffet(effet::kSlideUp); break;
    case 4: poserEffet(effet::kSlideDown); break;
    case 5: poserAttaque(attaque::kBrushUp); break;
    case 6: m_doc.setMesureTexte(piste, m, x, "Roll", kVrai); break;
    // 7 and 8 are the other way round from what the export writes.
    case 7: poserAttaque(attaque::kHarmoniqueNaturelle); break;
    case 8: poserAttaque(attaque::kHarmoniqueArtificielle); break;
    case 9: poserEffet(effet::kVibrato); break;
    case 10: poserEffet(effet::kTremolo); break;
    case 11: poserEffet(effet::kTrill); break;
    case 12: poserEffet(effet::kBendUp); break;
    case 13: poserAttaque(attaque::kPalmMute); break;
    case 14: poserAttaque(attaque::kDeadNote); break;
    case 15: poserAttaque(attaque::kTap); break;
    default: break;
  }
  return true;
}

}  // namespace vt
