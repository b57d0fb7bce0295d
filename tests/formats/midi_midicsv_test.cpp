// Our exported files read by an independent reader, midicsv: its listing must
// hold exactly the events that the documents imply, worked out here by hand.
#include <gtest/gtest.h>

#include <algorithm>

#include "formats/midi_export.h"
#include "interchange_test_util.h"

namespace vt {
namespace {

using test::poser;

using Listing = std::vector<std::string>;

// An expected event: document tick and the record without its track and time.
struct Attendu {
  long t;
  std::string record;
};

// Rows of one midicsv track whose type is one of `types` (for Control_c only
// the modulation wheel, controller 1), as "track, time, record".
Listing lignes(const std::vector<std::vector<std::string>>& csv, int piste,
               std::initializer_list<const char*> types) {
  Listing out;
  for (const auto& r : csv) {
    if (r.size() < 3 || r[0] != std::to_string(piste)) continue;
    if (std::none_of(types.begin(), types.end(), [&](const char* t) { return r[2] == t; }))
      continue;
    if (r[2] == "Control_c" && (r.size() < 5 || r[4] != "1")) continue;
    std::string s;
    for (const auto& champ : r)
      s += (s.empty() ? "" : ", ") + champ;
    out.push_back(s);
  }
  return out;
}

// The same from expected events in document time: 120 file ticks to the
// quarter against 48, each delta rounded half to even.
Listing lignes(int piste, const std::vector<Attendu>& attendus) {
  Listing out;
  long fichier = 0, avant = 0;
  for (const Attendu& a : attendus) {
    const long d5 = (a.t - avant) * 5;
    long d = d5 / 2;
    if (d5 % 2 != 0 && d % 2 != 0) ++d;
    fichier += d;
    avant = a.t;
    out.push_back(std::to_string(piste) + ", " + std::to_string(fichier) + ", " + a.record);
  }
  return out;
}

std::string on(int canal, int note, int vel = 127) {
  return "Note_on_c, " + std::to_string(canal) + ", " + std::to_string(note) + ", " +
         std::to_string(vel);
}
std::string off(int canal, int note) {
  return "Note_off_c, " + std::to_string(canal) + ", " + std::to_string(note) + ", 127";
}

// Three tracks over four bars: bars 1-2 repeated once, a tie across the bar
// line 3|4, harmonics, a bass entering in bar 3, a drum track in bar 1, a
// tempo change in bar 3. Play order 1 2 1 2 3 4, bar starts 0 192 384 576 768 960.
CVantoroTablature morceau() {
  CVantoroTablature doc = test::document(4, 3);
  doc.setMesureLoopGaucheType(1, barre::kRepetition);
  doc.setMesureLoopDroiteType(2, barre::kRepetition);
  doc.setMesureLoopDroiteData(2, 1);
  doc.setMesureTempo(3, 0, 90);
  poser(doc, 1, 1, 1, 0, 0, 96);
  poser(doc, 1, 1, 1, 96, 12, 96, 0, attaque::kHarmoniqueNaturelle);
  poser(doc, 1, 2, 1, 0, 2, 48);
  poser(doc, 1, 2, 2, 48, 1, 48, 0, attaque::kHarmoniqueArtificielle);
  poser(doc, 1, 3, 1, 144, 3, 48, effet::kLiaison);
  poser(doc, 1, 4, 1, 0, 3, 96);
  poser(doc, 1, 4, 1, 96, 5, 48, effet::kLiaison);
  poser(doc, 1, 4, 1, 144, 5, 48);
  poser(doc, 2, 3, 6, 0, 0, 192, 0, 0, 95);
  poser(doc, 2, 4, 5, 0, 2, 96, 0, 0, 95);
  doc.setStaffType(3, kStaffBatterie);
  for (int x = 0; x < 192; x += 48)
    poser(doc, 3, 1, 6, x, 2, 24, 0, 0, 111);
  return doc;
}

TEST(MidiCrossCheck, RepeatsTiesHarmonicsTempoChangesSeveralTracksAndDrums) {
  CVantoroTablature doc = morceau();
  const auto csv = test::midicsv(io_enregistrer_mid(doc));
  ASSERT_FALSE(csv.empty());
  EXPECT_EQ(csv[0], (std::vector<std::string>{"0", "0", "Header", "1", "4", "120"}));

  // Conductor: the signature comes again at the second pass of bar 1; the
  // tempo change of bar 3 once per track.
  EXPECT_EQ(
      lignes(csv, 1, {"Tempo", "Time_signature", "Key_signature"}),
      (Listing{"1, 0, Tempo, 500000", "1, 0, Time_signature, 4, 2, 24, 8",
               "1, 0, Key_signature, 0, \"major\"", "1, 960, Time_signature, 4, 2, 24, 8",
               "1, 1920, Tempo, 666666", "1, 1920, Tempo, 666666", "1, 1920, Tempo, 666666"}));

  std::vector<Attendu> guitare;
  for (long passe : {0L, 384L}) {
    const std::vector<Attendu> deux = {{passe + 0, on(0, 64)},   {passe + 96, off(0, 64)},
                                       {passe + 96, on(0, 76)},  {passe + 192, off(0, 76)},
                                       {passe + 192, on(0, 66)}, {passe + 240, off(0, 66)},
                                       {passe + 240, on(0, 72)}, {passe + 288, off(0, 72)}};
    guitare.insert(guitare.end(), deux.begin(), deux.end());
  }
  // The tie from bar 3 into bar 4 ends a tick early; the one inside bar 4 does not.
  const std::vector<Attendu> fin = {
      {912, on(0, 67)}, {912 + 144 - 1, off(0, 67)}, {1056, on(0, 69)}, {1152, off(0, 69)}};
  guitare.insert(guitare.end(), fin.begin(), fin.end());
  EXPECT_EQ(lignes(csv, 2, {"Note_on_c", "Note_off_c"}), lignes(2, guitare));

  EXPECT_EQ(
      lignes(csv, 3, {"Note_on_c", "Note_off_c"}),
      lignes(3,
             {{768, on(1, 40, 95)}, {960, off(1, 40)}, {960, on(1, 47, 95)}, {1056, off(1, 47)}}));

  std::vector<Attendu> batterie;
  for (long passe : {0L, 384L})
    for (long x = 0; x < 192; x += 48) {
      batterie.push_back({passe + x, on(9, 42, 111)});
      batterie.push_back({passe + x + 24, off(9, 42)});
    }
  EXPECT_EQ(lignes(csv, 4, {"Note_on_c", "Note_off_c"}), lignes(4, batterie));
  EXPECT_EQ(lignes(csv, 4, {"Program_c"}), (Listing{"4, 0, Program_c, 9, 27"}));
  EXPECT_EQ(doc.getMesureLast(), 4);
}

// A vibrato, then a bend up of two frets over 48 ticks, then a plain note.
CVantoroTablature effets() {
  CVantoroTablature doc = test::document(2);
  poser(doc, 1, 1, 1, 0, 5, 48, effet::kVibrato);
  poser(doc, 1, 1, 1, 48, 5, 48);
  poser(doc, 1, 1, 1, 96, 5, 48, effet::kBendUp);
  poser(doc, 1, 1, 1, 144, 7, 48);
  poser(doc, 1, 2, 1, 0, 3, 48);
  return doc;
}

TEST(MidiCrossCheck, RmtfEventsAreMetaEventsOtherReadersSkip) {
  CVantoroTablature doc = effets();
  MidiExportOptions o;
  o.rmtf = true;
  const auto csv = test::midicsv(io_enregistrer_mid(doc, o));
  EXPECT_EQ(
      lignes(csv, 2, {"Unknown_meta_event"}),
      (Listing{"2, 0, Unknown_meta_event, 16, 8, 1, 0, 64, 59, 55, 50, 45, 40",
               "2, 0, Unknown_meta_event, 17, 2, 0, 9", "2, 120, Unknown_meta_event, 17, 1, 0",
               "2, 240, Unknown_meta_event, 17, 2, 0, 12",
               "2, 480, Unknown_meta_event, 17, 1, 0"}));
  // The notes are those of the file without RMTF.
  EXPECT_EQ(lignes(csv, 2, {"Note_on_c", "Note_off_c", "Pitch_bend_c"}),
            lignes(test::midicsv(io_enregistrer_mid(doc)), 2,
                   {"Note_on_c", "Note_off_c", "Pitch_bend_c"}));
}

}  // namespace
}  // namespace vt
