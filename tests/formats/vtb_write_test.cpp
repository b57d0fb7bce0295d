// The bytes of version 8 as the writer lays them out.
#include <gtest/gtest.h>

#include "formats/vtb.h"
#include "vtb_test_util.h"

namespace vt {
namespace {

using test::Octets;

std::vector<std::uint8_t> écrire(const CVantoroTablature& d) {
  VtbEcriture e = io_enregistrer_vtb(d);
  EXPECT_TRUE(e.ok()) << e.détail;
  return e.octets;
}

// The track head and the empty bars of a track of the default settings.
Octets& pisteParDéfaut(Octets& o, int p, const std::string& instrument,
                       std::initializer_list<int> cordes, int bars) {
  o.raw("TRK").b(p).str("").str(instrument).b(static_cast<int>(cordes.size()));
  for (int c : cordes)
    o.b(c);
  o.b(0).b(24).b(p - 1).be32(0).b(27).b(127).b(64).bs({0, 0, 0, 0}).b(1).b(0).b(0).b(0);
  for (int m = 0; m < bars; ++m) {
    o.b(0).b(0).b(0);
    for (std::size_t c = 0; c < cordes.size(); ++c)
      o.b(0);
  }
  return o;
}

TEST(VtbWrite, NewDocumentGivesTheListedBytes) {
  const CVantoroTablature d(test::guitare({64, 59, 55, 50, 45, 40}, 24, "Guitar"));
  Octets attendu;
  attendu.raw("VTB").b(8).b(1).bs({0, 0, 0, 0, 0}).b(120).b(0).b(0).be16(1).raw("TRK0");
  attendu.bs({8, 4, 4, 0, 0, 0, 0, 0});
  pisteParDéfaut(attendu, 1, "Guitar", {64, 59, 55, 50, 45, 40}, 1).raw("END");
  EXPECT_EQ(écrire(d), attendu.v);
}

TEST(VtbWrite, HeadTakesAuthorBeforeTitleAndOneByteTrackCount) {
  CVantoroTablature d(test::guitare({40}, 24, "G"));
  d.titre = "T";
  d.Auteur = "Au";
  d.Copy = "C";
  d.SousTitre = "S";
  d.Comments = "Co";
  d.tempo = 200;
  d.setTripleFeel(kVrai);
  d.addPiste(1, test::guitare({40}, 24, "G"));
  d.addMesure();
  Octets attendu;
  attendu.raw("VTB").b(8).b(2).str("Au").str("T").str("C").str("S").str("Co");
  attendu.b(200).b(255).b(0).be16(2).raw("TRK0");
  attendu.bs({8, 4, 4, 0, 0, 0, 0, 0}).bs({8, 4, 4, 0, 0, 0, 0, 0});
  pisteParDéfaut(attendu, 1, "G", {40}, 2);
  pisteParDéfaut(attendu, 2, "G", {40}, 2).raw("END");
  EXPECT_EQ(écrire(d), attendu.v);
}

// The bytes of the first track's first bar, found behind its head.
std::vector<std::uint8_t> premièreMesure(const std::vector<std::uint8_t>& f,
                                         std::size_t têteEtTable) {
  return std::vector<std::uint8_t>(f.begin() + static_cast<std::ptrdiff_t>(têteEtTable),
                                   f.end() - 3);
}

TEST(VtbWrite, NotePositionsAreBigEndian) {
  CVantoroTablature d(test::guitare({40}, 24, ""));
  d.setMesureSignature(1, 8, 4);  // 384 ticks
  int n = d.setNoteWhole(1, 1, 1, 200, 7, 48);
  d.setNoteVolume(1, 1, 1, n, 127);
  d.setNoteAttaque(1, 1, 1, n, 3);
  d.setNoteEffet(1, 1, 1, n, 9);
  n = d.setNoteWhole(1, 1, 1, 300, 8, 24);
  const auto f = écrire(d);
  // head 19 bytes, bar table 8, track head 26 for one string and empty names
  Octets attendu;
  attendu.b(0).b(0).b(0).b(2).bs({7, 3, 9, 127, 0, 200, 48}).bs({8, 0, 0, 0, 1, 44, 24});
  EXPECT_EQ(premièreMesure(f, 19 + 8 + 26), attendu.v);
}

TEST(VtbWrite, BankFlagsAndTrackNumbers) {
  CVantoroTablature d(test::guitare({40}, 24, ""));
  d.addPiste(1, test::guitare({40}, 24, ""));
  d.addPiste(2, test::guitare({40}, 24, ""));
  d.setMIDIBank(1, 5);
  d.setPistePlaySolo(1, kVrai);
  d.setPistePlayMute(1, kVrai);
  d.setMIDIBank(2, -2);
  d.setPistePlaySolo(2, kVrai);
  d.setPistePlayMute(3, kVrai);
  const auto f = écrire(d);
  const std::size_t début = 19 + 8;
  const std::size_t piste = 26 + 4;  // head and one empty bar of one string
  const auto à = [&](int p, std::size_t k) {
    return f[début + piste * static_cast<std::size_t>(p - 1) + k];
  };
  // "TRK" and the number from 1, the number less 1, the bank, solo and mute.
  const auto tête = [&](int p) {
    std::vector<int> v;
    for (std::size_t k : {3, 10, 11, 12, 13, 14, 24})
      v.push_back(à(p, k));
    return v;
  };
  EXPECT_EQ(tête(1), (std::vector<int>{1, 0, 0, 0, 0, 5, 3}));
  EXPECT_EQ(tête(2), (std::vector<int>{2, 1, 255, 255, 255, 254, 1}));
  EXPECT_EQ(tête(3), (std::vector<int>{3, 2, 0, 0, 0, 0, 2}));
}

TEST(VtbWrite, TextsOfAtMost255BytesAreWrittenLongerOnesRefused) {
  CVantoroTablature d;
  d.titre = std::string(255, 'x');
  EXPECT_TRUE(io_enregistrer_vtb(d).ok());
  d.Comments = std::string(256, 'y');
  VtbEcriture e = io_enregistrer_vtb(d);
  EXPECT_EQ(std::pair(e.message, e.détail),
            std::pair(msg::kTexteTropLong, std::string("Comments")));
  EXPECT_TRUE(e.octets.empty());

  // Records written around the checked setters are caught as well.
  CVantoroTablature d2;
  d2.addMesure();
  tTexte texteLong;
  texteLong.intX = 12;
  texteLong.strContenu.assign(300, 'z');
  d2.pisteMesure(1, 2)->tabTextesDn.push_back(texteLong);
  e = io_enregistrer_vtb(d2);
  EXPECT_EQ(std::pair(e.message, e.détail),
            std::pair(msg::kTexteTropLong, std::string("track 1, bar 2: lower text at tick 12")));
}

TEST(VtbWrite, DocumentBreakingItsRulesIsNotWritten) {
  CVantoroTablature d;
  OneBased<tNote>& notes = d.pisteMesure(1, 1)->tabCordes[2];
  notes.push_back(tNote{1, 12, 48, 0, 0, 0, 127});
  notes.push_back(tNote{2, 12, 0, 0, 0, 0, 127});  // out of order: the reader would refuse it
  const VtbEcriture e = io_enregistrer_vtb(d);
  EXPECT_EQ(e.message, msg::kDocumentIncohérent);
  EXPECT_NE(e.détail.find("string 2"), std::string::npos);
}

}  // namespace
}  // namespace vt
