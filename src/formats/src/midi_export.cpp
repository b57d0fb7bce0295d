#include "formats/midi_export.h"

#include <algorithm>

#include "document/tablature.h"
#include "formats/file_io.h"
#include "formats/midi_prologue.h"
#include "formats/walk_input.h"
#include "midi_chunk.h"
#include "midi_conductor.h"

namespace vt {

namespace {

using detail::ChunkMidi;

// The events of one document track, from the walk.
class PisteSink : public WalkSink {
 public:
  PisteSink(const CVantoroTablature& doc, const WalkInput& in, ChunkMidi& k, bool rmtf)
      : m_doc(doc), m_in(in), m_k(k), m_rmtf(rmtf) {}

  bool grandir = false;  // the document must gain a bar before the next step

  void event(const WalkEvent& e) override {
    if (e.type == WalkEventType::Tempo) return;  // tempos are the conductor's
    grandir = m_k.noterMesure(e.mesure, e.aprèsSaut, e.sauts, m_in.getMesureLast()) || grandir;
    m_k.delta(e.temps);
    switch (e.type) {
      case WalkEventType::Accord:
        accord(e);
        return;
      case WalkEventType::NoteOn:
        if (m_rmtf && e.note != nullptr) {
          const int code = codeAttributRmtf(*e.note);
          if (code < 0)
            m_k.octets({0xFF, 0x11, 0x01, e.corde - 1});
          else
            m_k.octets({0xFF, 0x11, 0x02, e.corde - 1, code});
          m_k.delta(e.temps);
        }
        break;
      default:
        break;
    }
    for (int i = 0; i < e.taille; ++i) m_k.octet(e.octets[static_cast<std::size_t>(i)]);
  }

 private:
  void accord(const WalkEvent& e) {
    const int n = m_doc.searchMesureAccord(e.piste, e.mesure, e.x);
    const int cordes = m_doc.getGuitareNbrCordes(e.piste);
    std::string données;
    for (int c = 1; c <= cordes; ++c)
      données += static_cast<char>(m_doc.getMesureAccordCorde(e.piste, e.mesure, n, c));
    données += m_doc.getMesureAccordNom(e.piste, e.mesure, n);
    m_k.meta(0x12, données);
  }

  const CVantoroTablature& m_doc;
  const WalkInput& m_in;
  ChunkMidi& m_k;
  bool m_rmtf;
};

// The head of a track chunk: program, name, bend range, bank, controllers.
void écrirePrologue(const CVantoroTablature& doc, const WalkInput& in, int p,
                    const MidiExportOptions& o, ChunkMidi& k) {
  RéglagesMidiPiste r;
  r.canal = in.piste(p).bytCanal & 0x0F;
  r.patch = doc.getMIDIPatch(p);
  r.banque = doc.getMIDIBank(p);
  r.phaser = doc.getMIDIPhaser(p);
  r.chorus = doc.getMIDIChorus(p);
  r.tremolo = doc.getMIDITremolo(p);
  r.reverb = doc.getMIDIReverb(p);
  r.balance = doc.getMIDIBalance(p);
  r.pan = doc.getMIDIPan(p);
  const PrologueMidi prologue = prologueMidi(r, o.effets);
  auto écrire = [&k](const MessageMidi& m) {
    for (int i = 0; i < m.taille; ++i) k.octet(m.octets[static_cast<std::size_t>(i)]);
  };
  k.delta(0);
  écrire(prologue.programme);

  std::string nom = doc.getPisteNom(p);
  if (nom.empty()) nom = "Track " + std::to_string(p);
  k.delta(0);
  k.meta(0x03, nom);

  // The bend range (RPN 0) goes out in running status: one status byte.
  k.delta(0);
  for (std::size_t i = 0; i < prologue.portée.size(); ++i) {
    if (i > 0) k.octet(0x00);
    const MessageMidi& m = prologue.portée[i];
    for (int j = i == 0 ? 0 : 1; j < m.taille; ++j) k.octet(m.octets[static_cast<std::size_t>(j)]);
  }
  for (const MessageMidi& m : prologue.banque) {
    k.delta(0);
    écrire(m);
  }
  for (const MessageMidi& m : prologue.contrôleurs) {
    k.delta(0);
    écrire(m);
  }
}

void écrirePiste(const CVantoroTablature& doc, WalkInput& in, int p,
                 const MidiExportOptions& o, ChunkMidi& k) {
  écrirePrologue(doc, in, p, o, k);

  if (o.rmtf) {
    const int cordes = doc.getGuitareNbrCordes(p);
    std::string tête;
    tête += static_cast<char>(p);
    tête += static_cast<char>(doc.getGuitareCapodastre(p));
    for (int c = 1; c <= cordes; ++c) tête += static_cast<char>(doc.getGuitareCorde(p, c));
    k.delta(0);
    k.meta(0x10, tête);
  }

  WalkOptions wo;
  wo.effets = o.effets;
  MidiWalk walk(in, wo, {p});
  PisteSink sink(doc, in, k, o.rmtf);
  while (!walk.fini()) {
    walk.step(sink);
    // The bar is appended between steps, when the walk holds no reference.
    if (sink.grandir) {
      in.addMesure();
      sink.grandir = false;
    }
  }
  walk.silence(sink);  // a note running past the end still gets its Note Off
  k.octets({0x00, 0xFF, 0x2F, 0x00});
}

}  // namespace

int codeAttributRmtf(const tNote& note) {
  switch (note.bytEffet) {
    case effet::kBendUp: return 0x0C;
    case effet::kHammerOn: return 0x01;
    case effet::kPullOff: return 0x02;
    case effet::kSlideUp: return 0x03;
    case effet::kSlideDown: return 0x04;
    case effet::kTremolo: return 0x0A;
    case effet::kTrill: return 0x0B;
    case effet::kVibrato: return 0x09;
    default: break;
  }
  switch (note.bytAttaque) {
    case attaque::kTap: return 0x0F;
    case attaque::kHarmoniqueArtificielle: return 0x07;
    case attaque::kHarmoniqueNaturelle: return 0x08;
    case attaque::kPalmMute: return 0x0D;
    case attaque::kDeadNote: return 0x0E;
    default: return -1;
  }
}

std::vector<byt> io_enregistrer_mid(CVantoroTablature& doc, const MidiExportOptions& options) {
  WalkInputOptions wio;
  wio.accords = true;
  WalkInput in = walkInputFromDocument(doc, wio);

  const int pistes = doc.getPisteLast() + 1;
  std::vector<byt> fichier{'M', 'T', 'h', 'd', 0, 0, 0, 6, 0, 1, static_cast<byt>(pistes >> 8),
                           static_cast<byt>(pistes & 0xFF), 0, 120};

  detail::ChunkMidi conducteur;
  detail::écrireConducteur(doc, in, conducteur);
  conducteur.ajouterA(fichier);
  for (int p = 1; p <= doc.getPisteLast(); ++p) {
    detail::ChunkMidi k;
    écrirePiste(doc, in, p, options, k);
    k.ajouterA(fichier);
  }
  for (int i = 0; i < in.mesuresAjoutées(); ++i) doc.addMesure();
  return fichier;
}

InterchangeResult exporterMidi(CVantoroTablature& doc, const std::string& chemin,
                               const MidiExportOptions& options) {
  if (const int n = doc.checkMesureRenvois(); n > 0)
    return InterchangeResult::refus(1301, std::to_string(n));
  const std::vector<byt> octets = io_enregistrer_mid(doc, options);
  if (const std::string erreur = writeFileAtomically(chemin, octets); !erreur.empty())
    return InterchangeResult::refus(msg::kEcritureImpossible, erreur);
  return {};
}

lng midCalculSilence(const CVantoroTablature& doc, lng enAttente, int barA, int xA, int barB,
                     int xB) {
  if (barA == barB) return xB - xA;
  lng total = 0;
  for (int m = barA; m <= barB; ++m) {
    total += enAttente;
    if (m == barA)
      total += doc.getMesureLargeur(m) - xA;
    else if (m == barB)
      total += xB;
    else
      total += doc.getMesureLargeur(m);
  }
  return total;
}

}  // namespace vt
