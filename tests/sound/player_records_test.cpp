// The records of a start as the document fills them.
#include <gtest/gtest.h>

#include <cstring>

#include "player/metronome.h"
#include "player/play_timing.h"
#include "player_test_util.h"

namespace vt {
namespace {

using test::poser;
using test::tableaux;

// The record's bytes read as signed little-endian fields of these widths, one after the other.
template <class T>
std::vector<long> champs(const T& r, std::initializer_list<int> largeurs) {
  std::array<std::uint8_t, sizeof(T)> o{};
  std::memcpy(o.data(), &r, sizeof(T));
  std::vector<long> v;
  std::size_t i = 0;
  for (int l : largeurs) {
    std::uint32_t u = 0;
    for (int k = 0; k < l; ++k)
      u |= std::uint32_t(o[i++]) << (8 * k);
    v.push_back(l == 4 ? long(std::int32_t(u)) : l == 2 ? long(std::int16_t(u)) : long(u));
  }
  return v;
}

TEST(PlayRecords, StartRecordBytesAtTheirOffsetsAndRepeatsOnlyFromBarOne) {
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
  // No repeats between markers; 60000 / (90 * 48) = 13.9; the click channel
  // 1-based as setMIDIchannel stands; 60000 / 90; under the start 6/8: (4 * 6) \ 8.
  EXPECT_EQ(champs(tableaux(doc, d, o).params,
                   {2, 2, 2, 2, 4, 2, 2, 4, 2, 2, 2, 1, 1, 4, 2, 2, 4, 2, 2, 2, 2}),
            (std::vector<long>{0,  -1, -1,  13, 2, 24, 0,  3,  96, 16, -1,
                               40, 1,  666, 3,  0, 77, -1, -1, 24, 0}));

  // Without markers: the cursor, and no stop; no clicks, no beat length; the
  // tick period is what the editor hands over.
  doc.setCurseurMesure(3);
  doc.setCurseurX(48);
  d.marker = false;
  d.beatsAtStart = false;
  d.périodeTick = 0;
  const tPlayParams p = tableaux(doc, d, o).params;
  EXPECT_EQ(std::make_tuple(p.intPériodeTick, p.lngStartMesure, p.intStartX, p.lngStopMesure,
                            p.intStopX, p.lngBeatDurée, p.intTempsMesure),
            std::make_tuple(0, 3, 48, 0, 0, 0, 4));

  // Repeats only from bar 1 outside marker mode, and only when asked for (a document
  // with broken marks, played anyway, plays straight).
  DemandeJeu r;
  r.renvois = true;
  EXPECT_EQ(tableaux(doc, r).params.boolRenvois, kFaux);
  doc.setCurseurMesure(1);
  doc.setCurseurX(0);
  EXPECT_EQ(tableaux(doc, r).params.boolRenvois, kVrai);
  r.renvois = false;
  EXPECT_EQ(tableaux(doc, r).params.boolRenvois, kFaux);
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
  EXPECT_EQ(champs(a.pistes[2], {1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 2, 2, 2, 4}),
            (std::vector<long>{7, 64, 59, 55, 50, 45, 40, 35, 30, 100, 1,
                               1, 2,  3,  4,  5,  6,  0,  0,  0,  0,   0x01020304}));
  // A drum staff, and track 10 though it is no drum track, play on channel 10.
  std::vector<int> canaux;
  for (const tPlayPiste& r : a.pistes) {
    canaux.push_back(r.bytCanal);
    EXPECT_EQ(r.bytVolume, 100);
  }
  EXPECT_EQ(canaux, (std::vector<int>{0, 1, 9, 3, 4, 5, 6, 7, 8, 9, 10}));
}

TEST(PlayRecords, AnySoloMutesEveryOtherTrackForTheLibraryOnly) {
  CVantoroTablature doc = test::document(1, 4);
  const auto muets = [&doc] {
    std::vector<int> m;
    for (const tPlayPiste& r : tableaux(doc).pistes)
      m.push_back(r.boolMute);
    return m;
  };
  doc.setPistePlayMute(1, kVrai);
  EXPECT_EQ(muets(), (std::vector<int>{kVrai, kFaux, kFaux, kFaux}));  // no solo: each its own
  doc.setPistePlaySolo(3, kVrai);
  doc.setPistePlaySolo(1, kVrai);  // solo and mute: mute still stands
  EXPECT_EQ(muets(), (std::vector<int>{kVrai, kVrai, kFaux, kVrai}));
  EXPECT_EQ(tableaux(doc).pistes[3].boolSolo, kVrai);
  EXPECT_EQ(doc.getPistePlayMute(2), kFaux);  // the document is not changed
}

TEST(PlayRecords, ClickChannelOneBasedHereNineInTheMetronomesRecordWhosePeriodIsRounded) {
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
  const tMetronomeParams r = métronomeParams(120, 3, m, 9);
  EXPECT_EQ(std::make_pair(r.bytCanal, r.bytPatch), std::make_pair(byt{5}, byt{12}));
  m.setMétronomeMIDICanal10 = 1;
  // Patch, channel 9, weak and strong notes, volume, the period, audible, the handle, beats, max.
  EXPECT_EQ(champs(métronomeParams(120, 3, m, 9), {1, 1, 1, 1, 1, 1, 1, 1, 4, 2, 2, 4, 2, 2}),
            (std::vector<long>{0, 9, 34, 33, 127, 0, 0, 0, 14, -1, 0, 9, 3, 35}));
  m.setMétro = 0;
  EXPECT_EQ(métronomeParams(120, 3, m, 9).boolAudible, kFaux);
  // The period rounds to the nearest millisecond: 13.89, 46.30, 27.78, 16.67, 6.67, 1.67.
  const std::pair<int, int> cas[] = {{120, 14}, {36, 46}, {60, 28}, {100, 17}, {250, 7}, {999, 2}};
  for (const auto& [tempo, période] : cas)
    EXPECT_EQ(métronomeParams(tempo, 4, {}, 0).lngPériode, période) << "tempo " << tempo;
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
  EXPECT_EQ(champs(a.mesures[2], {1, 1, 1, 1, 1, 1, 1, 1}),
            (std::vector<long>{3, 4, 2, 3, 0, 0, 0, 0}));
  EXPECT_EQ(a.mesures[1].bytLoopGaucheType, barre::kRepetition);
  EXPECT_TRUE(a.mesures.tempos(1).empty());
  const OneBased<tPlayTempo>& t = a.mesures.tempos(2);
  ASSERT_EQ(t.last(), 2);
  EXPECT_EQ(std::make_tuple(t[1].intX, t[1].bytTempo, t[2].intX, t[2].bytTempo),
            std::make_tuple(0, 60, 48, 90));

  ASSERT_EQ(a.notes.getPisteLast(), 2);
  ASSERT_EQ(a.notes.getMesureLast(), 2);
  EXPECT_EQ(a.notes.cellule(2, 1, 3), *doc.notes(2, 1, 4));
  EXPECT_EQ(a.notes.cellule(2, 1, 3)[1].bytReserve, 5);
  for (int p = 1; p <= 2; ++p)
    for (int m = 1; m <= 2; ++m)
      for (int c = 0; c < 7; ++c)
        EXPECT_EQ(a.notes.cellule(p, m, c).empty(), !(p == 2 && m == 1 && c == 3));
  EXPECT_TRUE(a.notes.cellule(3, 1, 0).empty());  // outside: no cell
  EXPECT_TRUE(a.notes.cellule(1, 1, 7).empty());

  // The arrays stay with their owner and are filled again: no stale cells.
  PlayArrays réutilisé = a;
  préparerJeu(test::document(1), réutilisé, {}, {});
  EXPECT_EQ(réutilisé.notes.getPisteLast(), 1);
  EXPECT_EQ(réutilisé.mesures.getMesureLast(), 1);
  EXPECT_TRUE(réutilisé.mesures.tempos(1).empty());
  EXPECT_TRUE(réutilisé.notes.cellule(1, 1, 3).empty());
}

}  // namespace
}  // namespace vt
