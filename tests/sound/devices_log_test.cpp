// The logging output and its lines: the format `play --log` prints, the times
// against a start, and messages from two threads at once.
#include <gtest/gtest.h>

#include <thread>

#include "sound/sortie_journal.h"

namespace vt {
namespace {

TEST(LogLine, TimeWithThreeDecimalsThenOnlyTheBytesTheMessageHas) {
  EXPECT_EQ(ligneJournal({1041.6666, midiPack(0x90, 0x45, 0x7F)}), "1041.667 90 45 7F");
  EXPECT_EQ(ligneJournal({0, midiPack(0xC0, 25)}), "0.000 C0 19");      // program: 2 bytes
  EXPECT_EQ(ligneJournal({2.5, midiPack(0xD3, 0x40)}), "2.500 D3 40");  // pressure: 2 bytes
  EXPECT_EQ(ligneJournal({12, midiPack(0xEF, 0x00, 0x60)}), "12.000 EF 00 60");
  EXPECT_EQ(ligneJournal({7, midiPack(0xB9, 0x07, 0x0A)}), "7.000 B9 07 0A");
  EXPECT_EQ(ligneJournal({-0.0001, midiPack(0x80, 0x3C, 0x00)}), "0.000 80 3C 00");
  EXPECT_EQ(ligneJournal({0.0005, midiPack(0x90, 1, 2)}), "0.001 90 01 02");
}

TEST(LogOutput, TimesCountFromTheFirstMessageOrFromTheStartGivenResetsAreNotListed) {
  SortieJournal j;
  j.reset();
  j.shortMsg(midiPack(0x90, 60, 100));
  std::this_thread::sleep_for(std::chrono::milliseconds(20));
  j.shortMsg(midiPack(0x90, 60, 0));
  j.reset();
  EXPECT_EQ(j.resets(), 2);
  MessagesDates m = j.messages();
  ASSERT_EQ(m.size(), 2u);
  EXPECT_EQ(m[0].ms, 0.0);
  EXPECT_GE(m[1].ms, 19.0);
  EXPECT_EQ(m[1].message, midiPack(0x90, 60, 0));

  j.efface();
  j.setDébut(SortieJournal::Horloge::now() - std::chrono::milliseconds(100));
  j.shortMsg(midiPack(0xC0, 25));
  m = j.messages();
  ASSERT_EQ(m.size(), 1u);
  EXPECT_GE(m[0].ms, 100.0);
}

TEST(LogOutput, TwoThreadsAtOnceLoseNothingAndTheListenerSeesTheListsOrder) {
  SortieJournal j;
  MessagesDates vus;
  j.setEcouteur([&vus](const MessageDate& m) { vus.push_back(m); });
  auto envoie = [&j](std::uint8_t canal) {
    for (int i = 0; i < 1000; ++i)
      j.shortMsg(
          midiPack(std::uint8_t(0x90 | canal), std::uint8_t(i % 128), std::uint8_t(i / 128)));
  };
  std::thread a(envoie, 0), b(envoie, 1);
  a.join();
  b.join();
  const MessagesDates m = j.messages();
  ASSERT_EQ(m.size(), 2000u);
  EXPECT_EQ(vus, m);
  // Each thread's messages keep their order, and time never goes back.
  int suivant[2] = {0, 0};
  for (std::size_t i = 0; i < m.size(); ++i) {
    const int canal = midiStatus(m[i].message) & 0x0F;
    const int n = midiData1(m[i].message) + 128 * midiData2(m[i].message);
    EXPECT_EQ(n, suivant[canal]++);
    if (i > 0) {
      EXPECT_GE(m[i].ms, m[i - 1].ms);
    }
  }
}

}  // namespace
}  // namespace vt
