// The document's side of a start: the play arrays filled from the document,
// the cursor or the markers and the options, then handed to StartTab.
#pragma once

#include <cstdint>

#include "document/one_based.h"
#include "player/play_records.h"
#include "sound/message_date.h"

namespace vt {

class CVantoroTablature;

// The options a start reads (section "Options"), taken at each start so that
// a change in the options dialog reaches the next one.
struct OptionsJeu {
  int setMIDIPitchDemiTon = 32;
  int setMétronomeMIDINote1 = 33;
  int setMétronomeMIDICanal10 = 0;
  int setMIDIchannel = 1;  // 1 to 16
  int setMIDIvolume = 127;
  int setMIDIEffet1Ton = 0;
  int setMIDIPitchBendRange = 12;
};

// What the editor asks for.
struct DemandeJeu {
  int périodeTick = 10;  // ms, 60000 / (tempo * 48): the editor's timer (périodeTickMs)
  bool renvois = false;  // honour the repeats: only from bar 1, marks checked
  bool loop = false;
  bool beatsAtStart = false;
  int beatDurée = 0;         // ms, 60000 / tempo (duréeTempsMs), with the clicks
  bool marker = false;       // between the markers
  std::int32_t midiOut = 0;  // the open output's handle
};

// The arrays handed to the library. The editor owns one and keeps it from
// run to run: each start fills it again, so edits made while stopped are
// heard.
struct PlayArrays {
  tPlayParams params;
  OneBased<tPlayPiste> pistes;
  PlayMesures mesures;
  PlayNotes notes;
};

// Copies the bar headers with their tempo changes, and every track's note
// lists, cell by cell, into the arrays; strings without notes stay empty, and
// so do the bars before `premièreMesure`.
void playConvertTabForDLL(const CVantoroTablature& doc, PlayArrays& a, int premièreMesure = 1);

// Fills every record for a start (the start record, the tracks with the solo
// rule, then playConvertTabForDLL) without starting anything.
void préparerJeu(const CVantoroTablature& doc, PlayArrays& a, const OptionsJeu& options,
                 const DemandeJeu& demande);

// préparerJeu, then the cursor's track to the library, then StartTab.
void playStart(const CVantoroTablature& doc, PlayArrays& a, const OptionsJeu& options,
               const DemandeJeu& demande);
void playStop();

// The whole document from bar 1 as the player sounds it, with the ideal time
// of each message, for the WAV export: repeats followed unless their marks
// are broken.
MessagesDates rendreDocument(const CVantoroTablature& doc, const OptionsJeu& options = {});

}  // namespace vt
