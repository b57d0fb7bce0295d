// Helpers of the player's tests: small documents, the play arrays made from
// them, the offline walk, and waiting on the real-time clock with a limit.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "document/tablature.h"
// document() and poser(), shared with the tests of the MIDI export.
#include "interchange_test_util.h"
#include "player/play_offline.h"
#include "player/play_start.h"
#include "sound/midi_out.h"
#include "sound/sortie_journal.h"

namespace vt::test {

// The arrays of a start from the cursor (or the markers) with `demande`.
PlayArrays tableaux(const CVantoroTablature& doc, const DemandeJeu& demande = {},
                    const OptionsJeu& options = {});

// The offline walk of those arrays at the document's tempo.
std::vector<MessageJoué> horsLigne(const CVantoroTablature& doc, const DemandeJeu& demande = {},
                                   const OptionsJeu& options = {});

// A logging output registered as a handle for the length of a test.
struct JournalOuvert {
  JournalOuvert();
  ~JournalOuvert();
  JournalOuvert(const JournalOuvert&) = delete;
  JournalOuvert& operator=(const JournalOuvert&) = delete;
  std::shared_ptr<SortieJournal> sortie;
  std::int32_t handle = 0;
};

// Polls `condition` every millisecond until it holds or `limite` passes.
bool attendreQue(const std::function<bool()>& condition,
                 std::chrono::milliseconds limite = std::chrono::milliseconds(3000));

// Message helpers.
bool estNoteOn(std::uint32_t m);
bool estNoteOff(std::uint32_t m);
// Every Note On of the list has a later Note Off of the same note and channel.
bool toutRelâché(const MessagesDates& messages);

}  // namespace vt::test
