// MIDI to tablature: where notes land, what the meta-events become, when the
// conversion refuses; and files made by other programs (see
// tests/data/midi/README.md), imported.
#include <gtest/gtest.h>

#include <string>

#include "document/validate.h"
#include "formats/midi_import.h"
#include "formats/string_table.h"
#include "interchange_test_util.h"
#include "midi_test_files.h"

namespace vt {
namespace {

using test::Octets;
using test::PisteMidi;
using test::smf;

InterchangeResult convertir(const Octets& octets, std::vector<int> sources, CVantoroTablature& doc,
                            MidiImportOptions o = {}) {
  MidiFichier f;
  InterchangeResult r = lireMidi(octets, f);
  if (!r.ok()) return r;
  o.sources = std::move(sources);
  r = convertirMidi(f, o, doc);
  if (r.ok()) {
    EXPECT_EQ(validateDocument(doc), "");
  }
  return r;
}

// Note n of a string, or an empty note when there is none.
tNote note(const CVantoroTablature& doc, int p, int m, int c, int n = 1) {
  const tNote* t = doc.getNote(p, m, c, n);
  return t != nullptr ? *t : tNote{};
}

TEST(MidiImportTime, XRoundedHalfToEvenDurationsTruncatedNotesNeverReleasedRunToTheEnd) {
  CVantoroTablature doc;
  // Division 96: a file tick is half a document tick.
  const Octets f = smf(
      1, 96, {PisteMidi().on(1, 64).on(3, 59).off(4, 64).off(6, 59).on(7, 55).off(12, 55).fin(12)});
  ASSERT_TRUE(convertir(f, {0}, doc).ok());
  // X 0.5, 1.5 and 3.5; lengths 1.5 and 2.5.
  EXPECT_EQ((std::vector<int>{note(doc, 1, 1, 1).intX, note(doc, 1, 1, 1).bytDurée,
                              note(doc, 1, 1, 2).intX, note(doc, 1, 1, 3).intX,
                              note(doc, 1, 1, 3).bytDurée}),
            (std::vector<int>{0, 1, 2, 4, 2}));
  // A Note On of velocity 0 releases; a note never released runs to the track's end.
  CVantoroTablature rel;
  const Octets relâche = smf(1, 96,
                             {PisteMidi()
                                  .on(0, 64, 90)
                                  .on(48, 64, 0)   // Note On of velocity 0
                                  .on(96, 59, 70)  // never released
                                  .fin(384)});
  ASSERT_TRUE(convertir(relâche, {0}, rel).ok());
  EXPECT_EQ(note(rel, 1, 1, 1), (tNote{0, 24, 0, 0, 0, 0, 90}));
  EXPECT_EQ(note(rel, 1, 1, 2), (tNote{0, 144, 48, 0, 0, 0, 70}));  // to the track's end
}

TEST(MidiImportStrings, ChordsTakeSuccessiveStringsFromTheTopNotesBelowThemAreDropped) {
  CVantoroTablature doc;
  PisteMidi p;
  for (int h : {48, 52, 55})  // C major, low
    p.on(0, h);
  for (int h : {48, 52, 55})
    p.off(96, h);
  for (int canal : {0, 1, 2})
    p.on(96, 64, 100, canal);
  const Octets f = smf(1, 96, {p.fin(192)});
  ASSERT_TRUE(convertir(f, {0}, doc).ok());
  // C3 E3 G3 on strings 5, 4, 3; then the same E4 three times: the next string down each time.
  EXPECT_EQ(test::notes(doc), (std::vector<std::string>{"1:1:48:0", "1:2:48:5", "1:3:0:0",
                                                        "1:3:48:9", "1:4:0:2", "1:5:0:3"}));
  // Below the low E: dropped; string 1 fret 36; a second E2 has no string left.
  CVantoroTablature bas;
  const Octets graves = smf(1, 96,
                            {PisteMidi()
                                 .on(0, 39)
                                 .on(0, 100)
                                 .off(48, 39)
                                 .off(48, 100)
                                 .on(96, 40)
                                 .on(96, 40, 100, 1)
                                 .fin(192)});
  ASSERT_TRUE(convertir(graves, {0}, bas).ok());
  EXPECT_EQ(test::notes(bas), (std::vector<std::string>{"1:1:0:36", "1:6:48:0"}));
  // A transposition is held to the MIDI range: 160 is 127, -40 is 0, below every string.
  const Octets do4 = smf(1, 96, {PisteMidi().on(0, 60).off(96, 60).fin(96)});
  for (const auto& [demiTons, attendu] : {std::pair{100, std::vector<std::string>{"1:1:0:63"}},
                                          std::pair{-100, std::vector<std::string>{}}}) {
    MidiImportOptions o;
    o.transposition = demiTons;
    CVantoroTablature t;
    ASSERT_TRUE(convertir(do4, {0}, t, o).ok());
    EXPECT_EQ(test::notes(t), attendu);
  }
}

TEST(MidiImportMeta, SignaturesKeysBarsBeyondTheEndAndPositionsPastTheLastBarDropped) {
  CVantoroTablature doc;
  PisteMidi p;
  p.meta(0, 0x58, std::string("\x03\x02\x18\x08", 4))
      .meta(0, 0x59, std::string("\xFD\x01", 2))               // three flats, minor
      .meta(96 * 6, 0x58, std::string("\x02\x02\x18\x08", 4))  // 2/4 from bar 3
      .on(96 * 6, 64)
      .off(96 * 7, 64)
      .on(96 * 4 * 999, 64)
      .off(96 * 4 * 999 + 96, 64);
  ASSERT_TRUE(convertir(smf(1, 96, {p.fin(96 * 4 * 1000)}), {0}, doc).ok());
  // 96 * 4 * 999 file ticks = 191808 document ticks: 288 in the 3/4 and
  // 2/4 bars before, then 96-tick bars.
  const int m = 3 + (191808 - 288) / 96;
  EXPECT_EQ(
      (std::vector<int>{doc.getMesureSignatureUp(1), doc.getMesureSignatureUp(2),
                        doc.getMesureSignatureUp(3), doc.getMesureSignatureUp(4),
                        doc.getMesureTonalité(1), doc.getMesureTonalité(m),
                        doc.getNoteLast(1, 3, 1), doc.getMesureLast(), doc.getNoteLast(1, m, 1)}),
      (std::vector<int>{3, 3, 2, 2, 8 - 3 + 64, 8 - 3 + 64, 1, m, 1}));
  // Positions past the last possible bar are dropped.
  CVantoroTablature loin;
  const Octets tard =
      smf(1, 96, {PisteMidi().on(0, 64).off(10, 64).on(0x0FFFFFF0, 64).fin(0x0FFFFFFF)});
  ASSERT_TRUE(convertir(tard, {0}, loin).ok());
  EXPECT_LE(loin.getMesureLast(), kMaxMesures);
  EXPECT_EQ(loin.getNoteLast(1, 1, 1), 1);
}

TEST(MidiImportMeta, TheFirstChunksTemposAreReadUnchosenSoThePieceKeepsItsSpeed) {
  const Octets f = smf(1, 96,
                       {PisteMidi().meta(0, 0x51, std::string("\x07\xA1\x20", 3)).fin(0),
                        PisteMidi().on(0, 64).off(96, 64).fin(96),
                        PisteMidi()
                            .on(0, 59)
                            .off(96, 59)
                            .meta(192, 0x51, std::string("\x06\x1A\x80", 3))  // 150
                            .fin(192)});
  CVantoroTablature doc, seul, aucun;
  ASSERT_TRUE(convertir(f, {1, 2}, doc).ok());
  EXPECT_EQ((std::vector<int>{doc.tempo, doc.getMesureTempoContenu(1, doc.searchMesureTempo(1, 96)),
                              doc.getMesureTempoContenu(1, doc.searchMesureTempo(1, 0))}),
            (std::vector<int>{120, 150, 120}));
  ASSERT_TRUE(convertir(f, {1}, seul).ok());  // the third track is not read
  EXPECT_EQ(seul.searchMesureTempo(1, 96), 0);
  MidiImportOptions sans;
  sans.tempos = false;
  ASSERT_TRUE(convertir(f, {1, 2}, aucun, sans).ok());
  EXPECT_EQ(aucun.getMesureTempoLast(1), 0);
}

TEST(MidiImportMeta, HeadTextsAndATrackNameThatNamesItsTrackInsteadOfStandingAsAText) {
  const Octets f =
      smf(1, 96,
          {PisteMidi()
               .meta(0, 0x03, "Song")
               .meta(0, 0x02, "(c) me")
               .meta(0, 0x01, "Slowly")
               .meta(0, 0x01, "second")
               .meta(0, 0x04, "Piano")
               .meta(192, 0x06, "Chorus")
               .fin(192),
           PisteMidi().meta(0, 0x03, "Lead").on(0, 64).meta(96, 0x05, "la").off(96, 64).fin(96)});
  CVantoroTablature doc;
  ASSERT_TRUE(convertir(f, {1}, doc).ok());
  EXPECT_EQ(
      (std::vector<std::string>{
          doc.titre, doc.Copy, doc.Comments, doc.getPisteNom(1), doc.getMesureTexte(1, 1, 0, kVrai),
          doc.getMesureTexte(1, 1, 48, kVrai), doc.getMesureTexte(1, 1, 96, kVrai)}),
      (std::vector<std::string>{"Song", "(c) me", "Slowly", "Lead", "second", "la", "Chorus"}));
  EXPECT_EQ(doc.getMesureTexteUpLast(1, 1), 3);  // the instrument name is not a text
}

TEST(MidiImportRmtf, AttributesBecomeEffectsAndAttacksTheTrackHeaderTheInstrument) {
  PisteMidi p;
  for (int a = 1; a <= 15; ++a) {
    p.meta(a * 12, 0x11, std::string{'\0', static_cast<char>(a)});
    p.on(a * 12, 64).off(a * 12 + 6, 64);
  }
  CVantoroTablature doc;
  ASSERT_TRUE(convertir(smf(1, 96, {p.fin(200)}), {0}, doc).ok());
  std::vector<int> effets, attaques;
  for (int a = 1; a <= doc.getNoteLast(1, 1, 1); ++a) {
    effets.push_back(doc.getNoteEffet(1, 1, 1, a));
    attaques.push_back(doc.getNoteAttaque(1, 1, 1, a));
  }
  EXPECT_EQ(effets, (std::vector<int>{3, 4, 1, 2, 0, 0, 0, 0, 9, 24, 25, 20, 0, 0, 0}));
  EXPECT_EQ(attaques, (std::vector<int>{0, 0, 0, 0, 10, 0, 1, 2, 0, 0, 0, 0, 6, 9, 3}));
  EXPECT_EQ(doc.getMesureTexte(1, 1, 36, kVrai), "Roll");
  // The track header restores the instrument and hints the strings.
  PisteMidi entête;
  entête
      .meta(0, 0x10,
            std::string("\x01\x02\x40\x3B\x37\x32\x2D\x28\x23", 9))  // seven strings, capo 2
      .meta(0, 0x12,
            std::string("\x00\x01\x02\x02\x00\xFF\xFF"
                        "Am",
                        9))
      .meta(0, 0x11, std::string("\x06", 1))
      .on(0, 38)  // string 7, fret 3
      .meta(0, 0x11, std::string("\x08", 1))
      .on(0, 64)  // no string 9: placed by the rule
      .meta(0, 0x11, std::string("\x00", 1))
      .on(0, 50)  // below string 1: placed by the rule
      .off(96, 38)
      .off(96, 64)
      .off(96, 50);
  CVantoroTablature tête;
  ASSERT_TRUE(convertir(smf(1, 96, {entête.fin(96)}), {0}, tête).ok());
  EXPECT_EQ((std::vector<int>{tête.getGuitareNbrCordes(1), tête.getGuitareCapodastre(1),
                              tête.getGuitareCorde(1, 7), tête.getMesureAccordLast(1, 1),
                              tête.getMesureAccordCorde(1, 1, 1, 3),
                              tête.getMesureAccordCorde(1, 1, 1, 7)}),
            (std::vector<int>{7, 2, 35, 1, 2, 255}));
  EXPECT_EQ(test::notes(tête), (std::vector<std::string>{"1:1:0:0", "1:4:0:0", "1:7:0:3"}));
  EXPECT_EQ(tête.getMesureAccordNom(1, 1, 1), "Am");
}

TEST(MidiImportChoice, FormatZeroChannelsFillTheirTargetsWithTheirFirstProgramSoTheSoundsComeBack) {
  const Octets f = smf(0, 96,
                       {PisteMidi()
                            .evt(0, {0xC1, 33})
                            .on(0, 64)
                            .on(0, 40, 80, 1)
                            .off(96, 64)
                            .off(96, 40, 1)
                            .fin(96)});
  CVantoroTablature doc;
  ASSERT_TRUE(convertir(f, {2, 1}, doc).ok());
  ASSERT_EQ(doc.getPisteLast(), 2);
  EXPECT_EQ(note(doc, 1, 1, 6), (tNote{0, 48, 0, 0, 0, 0, 80}));  // channel 2 into track 1
  EXPECT_EQ(test::notes(doc, 2), std::vector<std::string>{"1:1:0:0"});
  EXPECT_EQ((std::vector<int>{doc.getMIDIPatch(1), doc.getMIDIPatch(2)}),
            (std::vector<int>{33, kPatchParDéfaut}));
}

TEST(MidiImportChoice, TheSourcesHoldingNotesAreChosenBeforehandAtMostSevenSoOkConvertsAtOnce) {
  std::vector<MidiSource> s(10);
  for (int i = 0; i < 10; ++i) {
    s[static_cast<std::size_t>(i)].numéro = i;
    s[static_cast<std::size_t>(i)].notes = i == 0 || i == 3 ? 0 : 5;
  }
  EXPECT_EQ(sourcesParDéfaut(s), (std::vector<int>{1, 2, 4, 5, 6, 7, 8}));
  // Refusals: no target, a source without notes, an unknown command.
  const Octets f = smf(
      1, 96,
      {PisteMidi().meta(0, 0x03, "Conductor").fin(0), PisteMidi().on(0, 64).off(96, 64).fin(96)});
  CVantoroTablature doc;
  EXPECT_EQ(convertir(f, {}, doc).stringId, kMsgMidiAucuneCible);
  EXPECT_EQ(convertir(f, {7}, doc).stringId, kMsgMidiAucuneCible);
  EXPECT_EQ(convertir(f, {1, 0}, doc).stringId, kMsgMidiPisteSansNote);
  EXPECT_EQ(convertir(smf(0, 96, {PisteMidi().on(0, 64).fin(9)}), {3}, doc).stringId,
            kMsgMidiPisteSansNote);
  const InterchangeResult r =
      convertir(smf(1, 96, {PisteMidi().on(0, 64).evt(5, {0xF9}).fin(9)}), {0}, doc);
  EXPECT_EQ(r.stringId, kMsgMidiCommandeInconnue);
  EXPECT_EQ(r.détail, "F9");
}

TEST(MidiImportSteps, ReportedInOrderWithProgress) {
  MidiFichier f;
  ASSERT_TRUE(lireMidi(smf(1, 96, {PisteMidi().on(0, 64).off(96, 64).fin(96)}), f).ok());
  std::vector<int> étapes;
  std::size_t dernier = 0;
  MidiImportProgress prog{[&](int id) { étapes.push_back(id); },
                          [&](std::size_t pos, std::size_t taille) {
                            EXPECT_LE(pos, taille);
                            dernier = pos;
                          }};
  MidiImportOptions o;
  o.sources = {0};
  CVantoroTablature doc;
  ASSERT_TRUE(convertirMidi(f, o, doc, prog).ok());
  EXPECT_EQ(étapes, (std::vector<int>{1012, 1008, 1009, 1010}));
  EXPECT_EQ(dernier, f.pistes[0].taille);
}

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
