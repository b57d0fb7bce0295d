// The operations that write what a MIDI file holds into a document. Each
// takes an absolute position in document ticks from the start of the piece,
// finds its bar (adding bars at the end while the position lies beyond the
// document) and writes there.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "document/one_based.h"
#include "document/types.h"

namespace vt {

class CVantoroTablature;

class TranscripteurMidi {
 public:
  explicit TranscripteurMidi(CVantoroTablature& doc) : m_doc(doc) {}

  // Bar and tick in the bar of absolute position X; false when the document
  // cannot grow that far.
  bool position(std::int64_t X, int& mesure, int& x);

  // The key from the bar of X on; sharps positive, flats negative (-7..7).
  void MIDITonalité2VTBTonalité(std::int64_t X, int sf, int mode);
  void MIDIAccord2VTBAccord(int piste, std::int64_t X, const std::string& nom,
                            const OneBased<byt>& frettes);
  // An upper text.
  void MIDITexte2VTBTexte(int piste, std::int64_t X, const std::string& texte);
  // A tempo change; zero or negative input is ignored. Answers the tempo
  // written, 0 when none.
  int MIDITempo2VTBTempo(std::int64_t X, std::int64_t microsecondesParNoire);
  // The signature of the bar at X; zero values are ignored.
  void MIDISignature2VTBSignature(std::int64_t X, int up, int dn);
  // Places a note: on the hinted string when it can take it, else on the
  // first string from the top whose open note is at or below it, moving on to
  // the next string while one is taken at that tick. Answers false when the
  // note is dropped (below every string reachable, or no room).
  bool MIDINoteOnNumber2NoteCase(int piste, int note, int durée, std::int64_t X, int corde,
                                 int attribut, int volume);

 private:
  void étendreDébuts();

  CVantoroTablature& m_doc;
  std::vector<std::int64_t> m_débuts;  // start of bar m at [m - 1], valid for the first entries
  int m_valides = 0;
};

}  // namespace vt
