// vantoro-cli render: the strip drawn offscreen into a PNG.
#include "cli_banc.h"

namespace vt {
namespace {

using RenderCli = CliBanc;

TEST_F(RenderCli, DrawsAStripOfTheAskedSize) {
  ASSERT_EQ(lancer("new " + c("a.vtb")).code, 0);
  ASSERT_EQ(lancer("render " + c("a.vtb") + " " + c("a.png") +
                   " --width 640 --height 320 --view 3 --triplet --cursor 1:24:2")
                .code,
            0);
  EXPECT_EQ(taillePng("a.png"), std::make_pair(640, 320));
  ASSERT_EQ(lancer("render " + c("a.vtb") + " " + c("b.png") + " --no-staff").code, 0);
  EXPECT_EQ(taillePng("b.png"), std::make_pair(1280, 400));
}

TEST_F(RenderCli, RefusesWhatItCannotDrawAndWritesNothing) {
  ASSERT_EQ(lancer("new " + c("a.vtb")).code, 0);
  for (const char* faux : {" --track 2", " --scroll 5", " --cursor 1-2", " --view 5"})
    EXPECT_EQ(lancer("render " + c("a.vtb") + " " + c("x.png") + faux).code, 2) << faux;
  EXPECT_EQ(lancer("render " + c("absent.vtb") + " " + c("x.png")).code, 1);
  EXPECT_FALSE(std::filesystem::exists(dossier_ / "x.png"));
}

}  // namespace
}  // namespace vt
