// The records of a start as the document fills them: the bytes at their
// offsets, the rules of each field (solo, click channel, periods, channels),
// and the copy of bars, tempos and notes.
#include <gtest/gtest.h>

#include <cstring>

#include "player/metronome.h"
#include "player/play_timing.h"
#include "player_test_util.h"

namespace vt {
namespace {

using test::poser;
using test::tableaux;

template <class T>
std::array<byt, sizeof(T)> image(const T& r) {
  std::array<byt, sizeof(T)> o{};
  std::memcpy(o.data(), &r, sizeof(T));
  return o;
}

int i16à(const auto& o, std::size_t i) {
  return static_cast<i16>(o[i] | (o[i + 1] << 8));
}
long i32à(const auto& o, std::size_t i) {
  return static_cast<lng>(std::uint32_t(o[i]) | std::uint32_t(o[i + 1]) << 8 |
                          std::uint32_t(o[i + 2]) << 16 | std::uint32_t(o[i + 3]) << 24);
}

TEST(PlayRecords, StartRecordBytesAtTheirOffsets) {
  CVantoroTablature doc = test::document(3);
  doc.tempo = 90;
  doc.setTripleFeel(kVrai);
  doc.setMesureSignature(2, 6, 8);
  doc.setMarqueurStart(2, 24);
  doc.setMarqueurStop(3, 96);
  OptionsJeu o;
  o.setMIDIPitchDemiTon = 16;
  o.setMétronomeMIDINote1 = 40;
  o.setMIDIEffet1Ton = -1;
  o.setMIDIPitchBendRange = 24;
  DemandeJeu d;
  d.périodeTick = périodeTickMs(90);
  d.loop = true;
  d.beatsAtStart = true;
  d.beatDurée = duréeTempsMs(90);
  d.marker = true;
  d.midiOut = 77;
  const auto b = image(tableaux(doc, d, o).params);
  EXPECT_EQ(i16à(b, 0), 0);   // repeats: never between markers
  EXPECT_EQ(i16à(b, 2), -1);  // loop
  EXPECT_EQ(i16à(b, 4), -1);  // triple feel
  EXPECT_EQ(i16à(b, 6), 13);  // 60000 / (90 * 48) = 13.9
  EXPECT_EQ(i32à(b, 8), 2);
  EXPECT_EQ(i16à(b, 12), 24);
  EXPECT_EQ(i16à(b, 14), 0);
  EXPECT_EQ(i32à(b, 16), 3);
  EXPECT_EQ(i16à(b, 20), 96);
  EXPECT_EQ(i16à(b, 22), 16);
  EXPECT_EQ(i16à(b, 24), -1);
  EXPECT_EQ(b[26], 40);
  EXPECT_EQ(b[27], 1);          // setMIDIchannel as it stands: 1-based
  EXPECT_EQ(i32à(b, 28), 666);  // 60000 / 90
  EXPECT_EQ(i16à(b, 32), 3);    // 6/8 under the start: (4 * 6) \ 8
  EXPECT_EQ(i16à(b, 34), 0);
  EXPECT_EQ(i32à(b, 36), 77);
  EXPECT_EQ(i16à(b, 40), -1);
  EXPECT_EQ(i16à(b, 42), -1);
  EXPECT_EQ(i16à(b, 44), 24);
  EXPECT_EQ(i16à(b, 46), 0);

  // Without markers: the cursor, and no stop.
  doc.setCurseurMesure(3);
  doc.setCurseurX(48);
  d.marker = false;
  d.beatsAtStart = false;
  d.périodeTick = 0;  // what the editor hands over is what the library gets
  const tPlayParams p = tableaux(doc, d, o).params;
  EXPECT_EQ(p.intPériodeTick, 0);
  EXPECT_EQ(p.lngStartMesure, 3);
  EXPECT_EQ(p.intStartX, 48);
  EXPECT_EQ(p.lngStopMesure, 0);
  EXPECT_EQ(p.intStopX, 0);
  EXPECT_EQ(p.lngBeatDurée, 0);  // no clicks, no beat length
  EXPECT_EQ(p.intTempsMesure, 4);
}

TEST(PlayRecords, TrackRecordBytesAndChannels) {
  CVantoroTablature doc = test::document(1, 11);
  doc.setMIDIPatch(2, 30);
  doc.setMIDIBank(2, 0x01020304);
  doc.setMIDIBalance(2, 1);
  doc.setMIDIPan(2, 2);
  doc.setMIDIReverb(2, 3);
  doc.setMIDITremolo(2, 4);
  doc.setMIDIChorus(2, 5);
  doc.setMIDIPhaser(2, 6);
  doc.setGuitareNbrCordes(2, 7);
  doc.setGuitareCorde(2, 7, 35);
  doc.setStaffType(3, kStaffBatterie);
  OptionsJeu o;
  o.setMIDIvolume = 100;
  const PlayArrays a = tableaux(doc, {}, o);
  ASSERT_EQ(a.pistes.last(), 11);
  const auto b = image(a.pistes[2]);
  EXPECT_EQ(b[0], 7);
  EXPECT_EQ((std::vector<int>(b.begin() + 1, b.begin() + 8)),
            (std::vector<int>{64, 59, 55, 50, 45, 40, 35}));
  EXPECT_EQ((std::vector<int>(b.begin() + 8, b.begin() + 18)),
            (std::vector<int>{30, 100, 1, 1, 2, 3, 4, 5, 6, 0}));
  EXPECT_EQ(i16à(b, 18), 0);
  EXPECT_EQ(i16à(b, 20), 0);
  EXPECT_EQ(i32à(b, 24), 0x01020304);

  EXPECT_EQ(a.pistes[1].bytCanal, 0);
  EXPECT_EQ(a.pistes[3].bytCanal, 9);   // a drum staff
  EXPECT_EQ(a.pistes[10].bytCanal, 9);  // track 10, though it is no drum track
  EXPECT_EQ(a.pistes[11].bytCanal, 10);
  for (const tPlayPiste& r : a.pistes)
    EXPECT_EQ(r.bytVolume, 100);
}

TEST(PlayRecords, AnySoloMutesEveryOtherTrackForTheLibraryOnly) {
  CVantoroTablature doc = test::document(1, 4);
  doc.setPistePlayMute(1, kVrai);
  EXPECT_EQ(tableaux(doc).pistes[1].boolMute, kVrai);  // no solo: each its own flag
  EXPECT_EQ(tableaux(doc).pistes[2].boolMute, kFaux);

  doc.setPistePlaySolo(3, kVrai);
  doc.setPistePlaySolo(1, kVrai);  // solo and mute: mute still stands
  const PlayArrays a = tableaux(doc);
  EXPECT_EQ(a.pistes[1].boolMute, kVrai);
  EXPECT_EQ(a.pistes[2].boolMute, kVrai);
  EXPECT_EQ(a.pistes[3].boolMute, kFaux);
  EXPECT_EQ(a.pistes[4].boolMute, kVrai);
  EXPECT_EQ(a.pistes[3].boolSolo, kVrai);
  EXPECT_EQ(doc.getPistePlayMute(2), kFaux);  // the document is not changed
}

TEST(PlayRecords, ClickChannelOneBasedHereNineInTheMetronomesRecord) {
  CVantoroTablature doc = test::document(1);
  OptionsJeu o;
  o.setMIDIchannel = 5;
  EXPECT_EQ(tableaux(doc, {}, o).params.bytClickCanal, 5);
  o.setMétronomeMIDICanal10 = 1;
  EXPECT_EQ(tableaux(doc, {}, o).params.bytClickCanal, 10);
  o.setMétronomeMIDICanal10 = 2;  // only 1 means channel 10
  EXPECT_EQ(tableaux(doc, {}, o).params.bytClickCanal, 5);

  OptionsMétronome m;
  m.setMIDIchannel = 5;
  m.setMIDIinstru = 12;
  tMetronomeParams r = métronomeParams(120, 3, m, 9);
  EXPECT_EQ(r.bytCanal, 5);
  EXPECT_EQ(r.bytPatch, 12);
  m.setMétronomeMIDICanal10 = 1;
  r = métronomeParams(120, 3, m, 9);
  EXPECT_EQ(r.bytCanal, 9);
  EXPECT_EQ(r.bytPatch, 0);
  const auto b = image(r);
  EXPECT_EQ(b[2], 34);  // weak
  EXPECT_EQ(b[3], 33);  // strong
  EXPECT_EQ(b[4], 127);
  EXPECT_EQ(i16à(b, 12), -1);
  EXPECT_EQ(i32à(b, 16), 9);
  EXPECT_EQ(i16à(b, 20), 3);
  EXPECT_EQ(i16à(b, 22), 35);
  m.setMétro = 0;
  EXPECT_EQ(métronomeParams(120, 3, m, 9).boolAudible, kFaux);
}

TEST(PlayRecords, MetronomePeriodRoundsToTheNearestMillisecond) {
  const std::pair<int, int> cas[] = {{120, 14},  // 13.89
                                     {36, 46},   // 46.30
                                     {60, 28},   // 27.78
                                     {100, 17},  // 16.67
                                     {250, 7},   // 6.67
                                     {999, 2}};  // 1.67
  for (const auto& [tempo, période] : cas)
    EXPECT_EQ(métronomeParams(tempo, 4, {}, 0).lngPériode, période) << "tempo " << tempo;
}

TEST(PlayRecords, RepeatsOnlyFromBarOneOutsideMarkerMode) {
  CVantoroTablature doc = test::document(3);
  DemandeJeu d;
  d.renvois = true;
  EXPECT_EQ(tableaux(doc, d).params.boolRenvois, kVrai);
  doc.setCurseurMesure(2);
  EXPECT_EQ(tableaux(doc, d).params.boolRenvois, kFaux);
  doc.setCurseurMesure(1);
  d.renvois = false;  // broken marks, the user chose to play anyway
  EXPECT_EQ(tableaux(doc, d).params.boolRenvois, kFaux);
}

TEST(PlayArraysCopy, BarsTemposAndNotesVerbatimEmptyStringsEmptyCells) {
  CVantoroTablature doc = test::document(2, 2);
  doc.setMesureLoopGaucheType(1, barre::kRepetition);
  doc.setMesureLoopDroiteType(2, barre::kRepetition);
  doc.setMesureLoopDroiteData(2, 3);
  doc.setMesureSignature(2, 3, 4);
  doc.setMesureTonalité(2, 70);
  doc.setMesureTempo(2, 48, 90);
  doc.setMesureTempo(2, 0, 60);
  const int n = poser(doc, 2, 1, 4, 24, 7, 12, effet::kVibrato, attaque::kPalmMute, 95);
  poser(doc, 2, 1, 4, 96, 9, 48);
  doc.piste(2).tabMesures[1].tabCordes[4][n].bytReserve = 5;  // copied as it stands

  const PlayArrays a = tableaux(doc);
  ASSERT_EQ(a.mesures.getMesureLast(), 2);
  const auto h = image(a.mesures[2]);
  EXPECT_EQ((std::vector<int>(h.begin(), h.begin() + 8)),
            (std::vector<int>{3, 4, 2, 3, 0, 0, 0, 0}));
  EXPECT_EQ(a.mesures[1].bytLoopGaucheType, barre::kRepetition);
  EXPECT_TRUE(a.mesures.tempos(1).empty());
  const OneBased<tPlayTempo>& t = a.mesures.tempos(2);
  ASSERT_EQ(t.last(), 2);
  EXPECT_EQ(t[1].intX, 0);
  EXPECT_EQ(t[1].bytTempo, 60);
  EXPECT_EQ(t[2].intX, 48);
  EXPECT_EQ(t[2].bytTempo, 90);

  ASSERT_EQ(a.notes.getPisteLast(), 2);
  ASSERT_EQ(a.notes.getMesureLast(), 2);
  EXPECT_EQ(a.notes.cellule(2, 1, 3), *doc.notes(2, 1, 4));
  EXPECT_EQ(a.notes.cellule(2, 1, 3)[1].bytReserve, 5);
  for (int p = 1; p <= 2; ++p)
    for (int m = 1; m <= 2; ++m)
      for (int c = 0; c < 7; ++c)
        if (!(p == 2 && m == 1 && c == 3)) {
          EXPECT_TRUE(a.notes.cellule(p, m, c).empty());
        }
  EXPECT_TRUE(a.notes.cellule(3, 1, 0).empty());  // outside: no cell
  EXPECT_TRUE(a.notes.cellule(1, 1, 7).empty());

  // The arrays stay with their owner and are filled again: no stale cells.
  PlayArrays réutilisé = a;
  CVantoroTablature autre = test::document(1);
  préparerJeu(autre, réutilisé, {}, {});
  EXPECT_EQ(réutilisé.notes.getPisteLast(), 1);
  EXPECT_EQ(réutilisé.mesures.getMesureLast(), 1);
  EXPECT_TRUE(réutilisé.mesures.tempos(1).empty());
  EXPECT_TRUE(réutilisé.notes.cellule(1, 1, 3).empty());
}

}  // namespace
}  // namespace vt
