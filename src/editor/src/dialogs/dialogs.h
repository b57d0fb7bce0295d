// The editor's document dialogs. Each reads the document when it opens and
// writes only on OK, after an undo snapshot (storeUndo), setting `modifi`;
// Cancel leaves the document as it was. The texts come through `Textes`
// (Textes{vt.setLang()}); none of them knows the editor window.
//
// Entry points (modal; true when the document changed):
//   FTabProprietes::editer(parent, t, catalogue, vt.guitare(), doc,
//                          FTabProprietes::Onglet::Pistes, doc.CurseurPiste())
//       the piece and its tracks; afterwards the editor calls updateGlobalGuitar
//       and redraws (the string count, tuning or staff type may have changed).
//   FTabGetTimeSignature::editer(parent, t, doc, mesure)
//       numerator and denominator, from a bar alone or on to the next change;
//       what a narrower bar would cut is shown before OK.
//   FTabGetKeySignature::editer(parent, t, doc, mesure)
//   FTabMesure::editer(parent, t, doc, mesure)            bar lines and repeats
//   FTabTempo::editer(parent, t, doc, mesure, x)          tempo change or removal
//   FTabTextes::editer(parent, t, doc, piste, mesure, x)  texts above and below
//   FTabAccord::getAccord(parent, t, doc, piste, mesure, x)  chord diagram
//   FTabTranspose::editer(parent, t, doc, piste, vt.guitare())
//       the track's notes moved by semitones within a fret range, over the
//       whole track or the selection's bars; afterwards the editor redraws.
//
// The imports replace the whole document, and only when the conversion
// succeeded (true then); a refusal leaves it as it was. The editor asks first
// whether to save a changed tablature, and the file is chosen before (strings
// 6007 and 6012, 6009 and 6013). `aide` opens a help page, e.g.
// [&vt](const QString& page) { vt.montreAide(page); }.
//   Fmid2vtb::importer(parent, t, catalogue, vt.guitare(), chemin, doc, aide)
//   Ftab2vtb::importer(parent, t, catalogue, vt.guitare(), chemin, doc, aide)
//       afterwards the editor forgets the document's file name (the piece has
//       none yet; `modifi` is set), clears the selection, rebuilds the track
//       buttons (tbPistesUpdate), makes the instrument follow the first track
//       (updateGlobalGuitar), redraws from bar 1 and greys Undo and Redo: the
//       undo steps went with the old document.
//   FTabMesureEdit::getMesurePositions(parent, t, doc, mode, positions)
//       the bars of a bar command, mode 1 insert, 2 copy, 3 cut, 4 delete, from
//       the cursor's bar; it writes nothing: on OK the editor runs the command
//       of presse_papiers.h on `positions`.
//
// Not modal: fTabDrums(t, parent), the drum picker; it emits drumChoisi(note)
// with the General MIDI note of the chosen drum, for a drum track's fret.
//
// `catalogue` is CatalogueGuitares::load(strAppPath + "vt.ini").
#pragma once

#include "fmid2vtb.h"
#include "ftab2vtb.h"
#include "ftab_accord.h"
#include "ftab_drums.h"
#include "ftab_get_key_signature.h"
#include "ftab_get_time_signature.h"
#include "ftab_mesure.h"
#include "ftab_mesure_edit.h"
#include "ftab_proprietes.h"
#include "ftab_tempo.h"
#include "ftab_textes.h"
#include "ftab_transpose.h"
#include "textes_dialogue.h"
