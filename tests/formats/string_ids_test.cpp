// Every message the files can show exists in both languages, and the table
// stays in order.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>

#include "formats/string_table.h"
#include "formats/vtb.h"
#include "vtb_test_util.h"

namespace vt {
namespace {

TEST(StringIds, MessagesOfTheFilesExistInBothLanguages) {
  for (int id : {msg::kFichierIntrouvable, msg::kLectureImpossible, msg::kEcritureImpossible,
                 msg::kPasUnFichierVtb, msg::kTailleFichier, msg::kVtbTropAncien,
                 msg::kVtbTropRécent, msg::kTexteTropLong, msg::kDocumentIncohérent, 6125}) {
    EXPECT_TRUE(hasString(id, kLangFrançais)) << id;
    EXPECT_TRUE(hasString(id, kLangAnglais)) << id;
    EXPECT_NE(loadString(id, kLangFrançais), loadString(id, kLangAnglais)) << id;
  }
  EXPECT_EQ(loadString(6005, kLangAnglais), "Bad file size!");
  EXPECT_EQ(loadString(6004, kLangAnglais), "This is not a VTB file!");
}

TEST(StringIds, TableIsSortedWithThreeFieldsPerLine) {
  std::ifstream in(test::dossierDonnées() / "strings.tsv");
  ASSERT_TRUE(in);
  std::string ligne;
  std::getline(in, ligne);  // the column names
  int avant = 0;
  while (std::getline(in, ligne)) {
    if (ligne.empty() || ligne[0] == '#') continue;
    const int id = std::stoi(ligne);
    EXPECT_GT(id, avant) << ligne;
    avant = id;
    EXPECT_EQ(std::count(ligne.begin(), ligne.end(), '\t'), 2) << ligne;
  }
}

}  // namespace
}  // namespace vt
