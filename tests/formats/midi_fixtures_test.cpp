// MIDI files made by other programs (see tests/data/midi/README.md), imported.
#include <gtest/gtest.h>

#include <string>

#include "document/validate.h"
#include "formats/midi_import.h"
#include "formats/string_table.h"

namespace vt {
namespace {

const std::string kDossier = std::string(VT_TEST_DATA_DIR) + "/midi/";

struct Importé {
  MidiFichier f;
  std::vector<MidiSource> sources;
  CVantoroTablature doc;
  InterchangeResult lecture;
};

Importé importer(const std::string& nom) {
  Importé i;
  i.lecture = ouvrirMidi(kDossier + nom, i.f);
  EXPECT_TRUE(i.lecture.ok()) << nom;
  i.sources = sourcesMidi(i.f, kLangAnglais);
  MidiImportOptions o;
  o.sources = sourcesParDéfaut(i.sources);
  EXPECT_TRUE(convertirMidi(i.f, o, i.doc).ok()) << nom;
  EXPECT_EQ(validateDocument(i.doc), "") << nom;
  return i;
}

struct Attendue {
  int corde, x, frette, durée;
};

void vérifierNotes(const CVantoroTablature& doc, int p, int m, std::vector<Attendue> attendues) {
  std::vector<Attendue> lues;
  for (int c = 1; c <= doc.getGuitareNbrCordes(p); ++c)
    for (int n = 1; n <= doc.getNoteLast(p, m, c); ++n) {
      const tNote* note = doc.getNote(p, m, c, n);
      lues.push_back({c, note->intX, note->bytCase, note->bytDurée});
    }
  auto clé = [](const Attendue& a) { return std::tuple(a.x, a.corde, a.frette, a.durée); };
  std::sort(lues.begin(), lues.end(), [&](auto& a, auto& b) { return clé(a) < clé(b); });
  std::sort(attendues.begin(), attendues.end(), [&](auto& a, auto& b) { return clé(a) < clé(b); });
  ASSERT_EQ(lues.size(), attendues.size()) << "track " << p << " bar " << m;
  for (std::size_t i = 0; i < lues.size(); ++i)
    EXPECT_EQ(clé(lues[i]), clé(attendues[i])) << "track " << p << " bar " << m << " note " << i;
}

TEST(MidiFixtures, LilyPondDuetFormatOneThreeTracksTwoTempos) {
  const Importé i = importer("lily_duet.midi");
  EXPECT_EQ(i.f.format, 1);
  EXPECT_EQ(i.f.division, 384);
  ASSERT_EQ(i.sources.size(), 3u);
  EXPECT_EQ(i.sources[0].libellé, "Duet: 0");
  EXPECT_EQ(i.sources[0].notes, 0);
  EXPECT_EQ(i.sources[1].notes, 15);
  EXPECT_EQ(i.sources[2].notes, 9);
  const CVantoroTablature& doc = i.doc;
  EXPECT_EQ(doc.titre, "Duet");
  // Tracks, bars, tempo, its change in bar 3, key (G major), patches.
  EXPECT_EQ((std::vector<int>{doc.getPisteLast(), doc.getMesureLast(), doc.tempo,
                              doc.getMesureTempoContenu(3, doc.searchMesureTempo(3, 0)),
                              doc.getMesureTonalité(1), doc.getMIDIPatch(1), doc.getMIDIPatch(2)}),
            (std::vector<int>{2, 4, 100, 80, 9, 24, 33}));
  // Bar 2: a half note, then the chord G B D whose notes go down the strings.
  vérifierNotes(doc, 1, 2, {{1, 0, 10, 96}, {1, 96, 3, 96}, {2, 96, 12, 96}, {3, 96, 19, 96}});
  vérifierNotes(doc, 1, 3,
                {{1, 0, 12, 24},
                 {1, 24, 10, 24},
                 {1, 48, 8, 24},
                 {1, 72, 7, 24},
                 {1, 96, 5, 48},
                 {1, 144, 3, 48}});
  vérifierNotes(doc, 2, 1, {{6, 0, 3, 96}, {4, 96, 0, 96}});
  vérifierNotes(doc, 2, 4, {{6, 0, 3, 192}});
}

TEST(MidiFixtures, LilyPondWaltzThreeFourAndATieAcrossTheBarLine) {
  const Importé i = importer("lily_waltz.midi");
  const CVantoroTablature& doc = i.doc;
  // Signatures of bars 1 and 5, bars, tempo, key (D minor), patch.
  EXPECT_EQ((std::vector<int>{doc.getMesureSignatureUp(1), doc.getMesureSignatureUp(5),
                              doc.getMesureLast(), doc.tempo, doc.getMesureTonalité(1),
                              doc.getMIDIPatch(1)}),
            (std::vector<int>{3, 3, 5, 140, 8 - 1 + 64, 25}));
  // D4 goes to string 2: the highest string that reaches a note takes it.
  vérifierNotes(doc, 1, 1, {{2, 0, 3, 48}, {1, 48, 1, 48}, {1, 96, 5, 48}});
  // The tied A (a half and a quarter) is cut at the bar line.
  vérifierNotes(doc, 1, 2, {{1, 0, 10, 96}, {1, 96, 5, 48}});
  vérifierNotes(doc, 1, 3, {{1, 48, 3, 48}, {1, 96, 1, 48}});
  vérifierNotes(doc, 1, 5, {{2, 0, 3, 144}});
}

TEST(MidiFixtures, CsvFormatZeroRunningStatusTwoChannels) {
  const Importé i = importer("csv_format0.mid");
  EXPECT_EQ(i.lecture.notices, std::vector<int>{kMsgMidiFormat0});
  ASSERT_EQ(i.sources.size(), 16u);
  EXPECT_EQ(i.sources[0].notes, 6);
  EXPECT_EQ(i.sources[1].notes, 2);
  const CVantoroTablature& doc = i.doc;
  ASSERT_EQ(doc.getPisteLast(), 2);
  EXPECT_EQ(doc.titre, "Format zero");
  EXPECT_EQ(doc.Copy, "nobody");
  // Signature, key of bar 2 (two flats, major), its tempo, patches.
  EXPECT_EQ((std::vector<int>{doc.getMesureSignatureUp(1), doc.getMesureTonalité(2),
                              doc.getMesureTempoContenu(2, doc.searchMesureTempo(2, 0)),
                              doc.getMIDIPatch(1), doc.getMIDIPatch(2)}),
            (std::vector<int>{3, 8 - 2, 80, 25, 33}));
  EXPECT_EQ(doc.getMesureTexte(1, 2, 0, kVrai), "B part");
  vérifierNotes(doc, 1, 1, {{1, 0, 0, 48}, {2, 0, 8, 48}, {1, 48, 1, 24}, {1, 72, 5, 24}});
  vérifierNotes(doc, 1, 2, {{1, 0, 8, 48}, {1, 48, 7, 96}});
  vérifierNotes(doc, 2, 1, {{6, 0, 0, 96}});
  vérifierNotes(doc, 2, 2, {{5, 0, 0, 144}});
}

}  // namespace
}  // namespace vt
