#include <gtest/gtest.h>

#include "formats/ascii_import.h"
#include "formats/interchange_result.h"
#include "formats/midi_import.h"
#include "formats/midi_reader.h"
#include "formats/string_table.h"

namespace vt {
namespace {

// Every message and step of the interchange formats exists in both languages.
TEST(InterchangeStrings, EveryIdInBothLanguages) {
  const int ids[] = {kEtapeRechercheBlocs, kEtapeConversionAscii, kEtapeNotes, kEtapeTablature,
                     kEtapeArrangement, kEtapeLecturePistes, kMsgAsciiCorrompue, 1301, 1316,
                     kMsgMidiCanal, kMsgMidiSansNom, kMsgMidiInvalide, kMsgMidiCommandeInconnue,
                     kMsgMidiPisteSansNote, kMsgMidiAucuneCible, kMsgMidiErreur,
                     kMsgMidiAucunePiste, kMsgMidiFormat0};
  for (int id : ids) {
    EXPECT_TRUE(hasString(id, kLangFrançais)) << id;
    EXPECT_TRUE(hasString(id, kLangAnglais)) << id;
  }
  EXPECT_EQ(loadString(kMsgMidiInvalide, kLangAnglais), "This MIDI file is not valid!");
  EXPECT_EQ(loadString(kMsgMidiCommandeInconnue, kLangAnglais), "Unknown command: ");
}

}  // namespace
}  // namespace vt
