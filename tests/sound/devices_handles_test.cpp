// The MIDI out handles of the player's records: 0 and unknown handles are no
// output, each open output has its own, and closing a handle leaves the output
// alive for whoever holds it.
#include <gtest/gtest.h>

#include "sound/midi_handles.h"
#include "sound/sortie_journal.h"

namespace vt {
namespace {

TEST(MidiHandles, ZeroUnknownAndClosedHandlesGiveNoOutputEachOpenOneItsOwn) {
  EXPECT_EQ(midiHandleSortie(0), nullptr);
  EXPECT_EQ(midiHandleSortie(-5), nullptr);
  EXPECT_EQ(midiHandleOuvrir(nullptr), 0);
  auto a = std::make_shared<SortieJournal>();
  auto b = std::make_shared<SortieJournal>();
  const std::int32_t ha = midiHandleOuvrir(a);
  const std::int32_t hb = midiHandleOuvrir(b);
  EXPECT_NE(ha, 0);
  EXPECT_NE(ha, hb);
  EXPECT_EQ(midiHandleSortie(ha), a);
  EXPECT_EQ(midiHandleSortie(hb), b);
  EXPECT_EQ(midiHandleSortie(hb + 1000), nullptr);
  midiHandleFermer(ha);
  EXPECT_EQ(midiHandleSortie(ha), nullptr);
  EXPECT_EQ(midiHandleSortie(hb), b);
  midiHandleFermer(ha);  // twice is harmless
  midiHandleFermer(hb);
}

TEST(MidiHandles, AClosedHandleKeepsARunningHolderAlive) {
  std::weak_ptr<SortieJournal> témoin;
  std::shared_ptr<MidiOut> tenue;
  {
    auto sortie = std::make_shared<SortieJournal>();
    témoin = sortie;
    const std::int32_t h = midiHandleOuvrir(sortie);
    sortie.reset();
    tenue = midiHandleSortie(h);  // what the player takes at its start
    midiHandleFermer(h);
  }
  ASSERT_FALSE(témoin.expired());
  tenue->shortMsg(midiPack(0x90, 60, 100));  // still plays
  EXPECT_EQ(témoin.lock()->messages().size(), 1u);
  tenue.reset();
  EXPECT_TRUE(témoin.expired()) << "the table keeps nothing after the close";
}

}  // namespace
}  // namespace vt
