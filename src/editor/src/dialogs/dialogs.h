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
//
// Not modal: fTabDrums(t, parent), the drum picker; it emits drumChoisi(note)
// with the General MIDI note of the chosen drum, for a drum track's fret.
//
// `catalogue` is CatalogueGuitares::load(strAppPath + "vt.ini").
#pragma once

#include "ftab_accord.h"
#include "ftab_drums.h"
#include "ftab_get_key_signature.h"
#include "ftab_get_time_signature.h"
#include "ftab_mesure.h"
#include "ftab_proprietes.h"
#include "ftab_tempo.h"
#include "ftab_textes.h"
#include "textes_dialogue.h"
