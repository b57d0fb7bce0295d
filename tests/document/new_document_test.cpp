#include <gtest/gtest.h>

#include "document/tablature.h"
#include "document/validate.h"

namespace vt {
namespace {

TEST(NewDocument, HasOneTrackOfOneEmptyFourFourBar) {
  CVantoroTablature doc;
  EXPECT_EQ(doc.getPisteLast(), 1);
  EXPECT_EQ(doc.getMesureLast(), 1);
  EXPECT_EQ(doc.getMesureLargeur(1), 192);
  for (int c = 1; c <= 6; ++c) EXPECT_EQ(doc.getNoteLast(1, 1, c), 0);
  EXPECT_EQ(doc.getMesureTempoLast(1), 0);
  EXPECT_EQ(validateDocument(doc), "");
}

}  // namespace
}  // namespace vt
