// CVantoroTablature: the whole of a tablature document in memory.
//
// Coordinates come in the order track, bar, string, then entry or tick, all
// numbered from 1 (ticks from 0). Every operation checks its coordinates: an
// index outside the document makes a getter answer 0 (or empty) and a setter
// do nothing, so no sequence of calls reaches outside the data. Operations that
// grow a list refuse at its limit, leave the document unchanged and say so by
// their result (0 or false).
#pragma once

#include <array>
#include <string>

#include "document/records.h"
#include "document/types.h"

namespace vt {

class CVantoroTablature {
 public:
  explicit CVantoroTablature(const tGuitare& guitare = tGuitare{}, byt bytPatch = kPatchParDéfaut);

  // ---- Public variables ---------------------------------------------------
  vbool modifi = kFaux;  // differs from its file: set by every edit, cleared by a save
  byt tempo = 120;       // beats per minute at the start of the piece
  std::string titre;
  std::string Auteur;
  std::string Copy;
  std::string SousTitre;
  std::string Comments;
  lng m_lngScrollValue = 1;  // first bar shown by the editor
  i16 intSelStartMesure = 0;
  i16 intSelStartX = 0;
  byt bytSelStartCorde = 0;
  i16 intSelStopMesure = 0;
  i16 intSelStopX = 0;
  byt bytSelStopCorde = 0;

  // Staff steps of a key signature's sharps and flats, 1..7 (element 0 unused).
  static constexpr std::array<i16, 8> ordreDièses{0, 6, 3, 7, 4, 8, 5, 9};
  static constexpr std::array<i16, 8> ordreBémols{0, 2, 5, 1, 4, 7, 3, 6};

  // ---- Lifecycle ----------------------------------------------------------
  // Brings the object to a new document: one track of `guitare`, one 4/4 bar.
  void initialize(const tGuitare& guitare, byt bytPatch = kPatchParDéfaut);

  // ---- Cursor and feel (plain reads and writes) ---------------------------
  i16 CurseurMesure() const { return m_CurseurMesure; }
  void setCurseurMesure(i16 v) { m_CurseurMesure = v; }
  i16 CurseurX() const { return m_CurseurX; }
  void setCurseurX(i16 v) { m_CurseurX = v; }
  lng lngCurseurX() const { return m_CurseurX; }
  void setLngCurseurX(lng v) { m_CurseurX = static_cast<i16>(v); }
  byt CurseurPiste() const { return m_CurseurPiste; }
  void setCurseurPiste(byt v) { m_CurseurPiste = v; }
  byt CurseurCorde() const { return m_CurseurCorde; }
  void setCurseurCorde(byt v) { m_CurseurCorde = v; }
  byt bytCurseurCorde() const { return m_CurseurCorde; }
  void setBytCurseurCorde(byt v) { m_CurseurCorde = v; }
  vbool TripleFeel() const { return m_TripleFeel; }
  void setTripleFeel(vbool v) { m_TripleFeel = v; }

  // ---- Notes --------------------------------------------------------------
  int getNoteLast(int bytPiste, int intMesure, int bytCorde) const;
  // Grows the list by one all-zero note at the end; false at the limit.
  bool addNote(int bytPiste, int intMesure, int bytCorde);
  // Sets the list to `count` zero notes, discarding its contents (for loaders).
  bool setCordeNbNotes(int bytPiste, int intMesure, int bytCorde, int count);
  int searchNote(int bytPiste, int intMesure, int bytCorde, int intX) const;
  int searchNoteBeforeX(int bytPiste, int intMesure, int bytCorde, int intX) const;
  int searchNoteAfterX(int bytPiste, int intMesure, int bytCorde, int intX, int fromN) const;
  int searchNoteAfterXExcludeCurrent(int bytPiste, int intMesure, int bytCorde, int intX,
                                     int fromN) const;
  int deleteNote(int bytPiste, int intMesure, int bytCorde, int bytN);
  // Places a note, cutting it and its neighbours; returns its number, 0 if refused.
  int setNoteWhole(int bytPiste, int intMesure, int bytCorde, int intX, int bytCase, int intDur);
  // Rounds a length down onto the 17 notated lengths.
  static int makeNoteDuréeExiste(int intDur);

  int getNoteCase(int bytPiste, int intMesure, int bytCorde, int bytN) const;
  int getNoteAttaque(int bytPiste, int intMesure, int bytCorde, int bytN) const;
  int getNoteVolume(int bytPiste, int intMesure, int bytCorde, int bytN) const;
  int getNoteDurée(int bytPiste, int intMesure, int bytCorde, int bytN) const;
  int getNoteEffet(int bytPiste, int intMesure, int bytCorde, int bytN) const;
  int getNoteX(int bytPiste, int intMesure, int bytCorde, int bytN) const;
  // Plain stores without any musical check.
  void setNoteCase(int bytPiste, int intMesure, int bytCorde, int bytN, byt v);
  void setNoteAttaque(int bytPiste, int intMesure, int bytCorde, int bytN, byt v);
  void setNoteVolume(int bytPiste, int intMesure, int bytCorde, int bytN, byt v);
  void setNoteDurée(int bytPiste, int intMesure, int bytCorde, int bytN, byt v);
  void setNoteEffet(int bytPiste, int intMesure, int bytCorde, int bytN, byt v);
  void setNoteX(int bytPiste, int intMesure, int bytCorde, int bytN, u16 v);
  // The whole record, or nullptr outside the document.
  const tNote* getNote(int bytPiste, int intMesure, int bytCorde, int bytN) const;

  // ---- Rhythm -------------------------------------------------------------
  int getTempsDurée(int intMesure) const;
  int getTempsNote(int bytPiste, int intMesure, int bytCorde, int bytN) const;
  lng getPremierSilence(int bytPiste) const;
  vbool isRythmContinueInTemps(int bytPiste, int intMesure, int bytCorde, int intX) const;

  // ---- Chords -------------------------------------------------------------
  int addandplaceMesureAccord(int bytPiste, int intMesure, int intX);
  int searchMesureAccord(int bytPiste, int intMesure, int intX) const;
  bool setMesureAccord(int bytPiste, int intMesure, int bytN, const std::string& strNom,
                       const OneBased<byt>& frettes);
  bool setMesureAccordNom(int bytPiste, int intMesure, int bytN, const std::string& strNom);
  std::string getMesureAccordNom(int bytPiste, int intMesure, int bytN) const;
  void setMesureAccordCorde(int bytPiste, int intMesure, int bytN, int bytCorde, byt bytCase);
  int getMesureAccordCorde(int bytPiste, int intMesure, int bytN, int bytCorde) const;
  int getMesureAccordX(int bytPiste, int intMesure, int bytN) const;
  int getMesureAccordLast(int bytPiste, int intMesure) const;
  void deleteAccord(int bytPiste, int intMesure, int bytN);

  // ---- Texts (TexteDuHaut -1 selects the upper list, anything else the lower)
  bool setMesureTexte(int bytPiste, int intMesure, int intX, const std::string& strValeur,
                      vbool TexteDuHaut);
  std::string getMesureTexte(int bytPiste, int intMesure, int intX, vbool TexteDuHaut) const;
  int searchMesureTexte(int bytPiste, int intMesure, int intX, vbool TexteDuHaut) const;
  void deleteTexte(int bytPiste, int intMesure, int bytN, vbool TexteDuHaut);
  int getMesureTexteUpLast(int bytPiste, int intMesure) const;
  int getMesureTexteDnLast(int bytPiste, int intMesure) const;
  std::string getMesureTexteUpContenu(int bytPiste, int intMesure, int bytN) const;
  std::string getMesureTexteDnContenu(int bytPiste, int intMesure, int bytN) const;
  int getMesureTexteUpX(int bytPiste, int intMesure, int bytN) const;
  int getMesureTexteDnX(int bytPiste, int intMesure, int bytN) const;

  // ---- Tempos (bar header) -------------------------------------------------
  bool setMesureTempo(int intMesure, int intX, byt valeur);
  int searchMesureTempo(int intMesure, int intX) const;
  void deleteTempo(int intMesure, int bytN);
  int getMesureTempoLast(int intMesure) const;
  int getMesureTempoContenu(int intMesure, int bytN) const;
  int getMesureTempoX(int intMesure, int bytN) const;

  // ---- Bar header ---------------------------------------------------------
  // Stores the signature and cuts away everything at or past the new width.
  // Refuses a zero numerator, a denominator other than 1, 2, 4 .. 64, and a
  // bar wider than a 16-bit tick count.
  bool setMesureSignature(int intMesure, int bytUp, int bytDn);
  int getMesureSignatureUp(int intMesure) const;
  int getMesureSignatureDn(int intMesure) const;
  int getMesureLargeur(int intMesure) const;
  void setMesureTonalité(int intMesure, byt v);
  void setMesureTonalitéDétails(int intMesure, int altérations, vbool boolMajeur);
  int getMesureTonalité(int intMesure) const;
  vbool getMesureTonalitéMode(int intMesure) const;
  int getMesureTonalitéAltérations(int intMesure) const;
  int getMesureLoopDroiteType(int intMesure) const;
  int getMesureLoopDroiteData(int intMesure) const;
  int getMesureLoopGaucheType(int intMesure) const;
  int getMesureLoopGaucheData(int intMesure) const;
  void setMesureLoopDroiteType(int intMesure, byt v);
  void setMesureLoopDroiteData(int intMesure, byt v);
  void setMesureLoopGaucheType(int intMesure, byt v);
  void setMesureLoopGaucheData(int intMesure, byt v);
  // The first bar with a repeat error, or 0.
  int checkMesureRenvois() const;

  // ---- Markers ------------------------------------------------------------
  void setMarqueurStart(int intMesure, int intX);
  void setMarqueurStop(int intMesure, int intX);
  vbool isMarkerCorrect() const;
  int getMarkerStartMesure() const { return m_marqueurs.startMesure; }
  int getMarkerStartX() const { return m_marqueurs.startX; }
  int getMarkerStopMesure() const { return m_marqueurs.stopMesure; }
  int getMarkerStopX() const { return m_marqueurs.stopX; }
  const tMarqueurs& marqueurs() const { return m_marqueurs; }

  // ---- Track settings (plain reads and writes) -------------------------------
  int getStaffType(int p) const;
  void setStaffType(int p, byt v);
  int getPortéeClef(int p) const;
  void setPortéeClef(int p, byt v);
  int getMIDIReverb(int p) const;
  void setMIDIReverb(int p, byt v);
  int getMIDIPan(int p) const;
  void setMIDIPan(int p, byt v);
  int getMIDIChorus(int p) const;
  void setMIDIChorus(int p, byt v);
  int getMIDIPhaser(int p) const;
  void setMIDIPhaser(int p, byt v);
  int getMIDITremolo(int p) const;
  void setMIDITremolo(int p, byt v);
  int getMIDIBalance(int p) const;
  void setMIDIBalance(int p, byt v);
  int getMIDIPatch(int p) const;
  void setMIDIPatch(int p, byt v);
  lng getMIDIBank(int p) const;
  void setMIDIBank(int p, lng v);
  std::string getPisteNom(int p) const;
  bool setPisteNom(int p, const std::string& v);
  std::string getGuitareNom(int p) const;
  bool setGuitareNom(int p, const std::string& v);
  int getGuitareNbrCordes(int p) const;
  // Writes only the field (1..7); changePisteNbrCordes makes the bars follow.
  bool setGuitareNbrCordes(int p, int v);
  int getGuitareNbrCases(int p) const;
  void setGuitareNbrCases(int p, byt v);
  int getGuitareCorde(int p, int bytCorde) const;
  void setGuitareCorde(int p, int bytCorde, byt v);
  int getGuitareCapodastre(int p) const;
  void setGuitareCapodastre(int p, byt v);
  vbool getPistePlaySolo(int p) const;
  void setPistePlaySolo(int p, vbool v);
  vbool getPistePlayMute(int p) const;
  void setPistePlayMute(int p, vbool v);

  // ---- Structure ----------------------------------------------------------
  int getPisteLast() const { return m_tabPistes.last(); }
  int getMesureLast() const { return m_tabMesures.last(); }
  bool addMesure();
  bool addPiste(int bytFromPiste, const tGuitare& guitare, byt bytPatch = kPatchParDéfaut);
  bool deletePiste(int bytPiste);
  void changePisteNbrCordes(int bytPiste);
  void garbageMesure(int intFromMesure, int intNbMesures);
  bool insertMesure(int bytPiste, int intFromMesure, int intNbMesures);
  void deleteMesure(int bytPiste, int intMesure);
  bool insertSilence(int bytPiste, int intMesure, int intX, int intDur);
  bool removeNotes(int bytPiste, int intMesure, int intX, int intDur);

  // ---- Undo and redo (whole-track snapshots, five deep) ---------------------
  void storeUndo(bool boolStoreFromScratch);
  void storeRedo();
  // Both answer true when the restored track is not the one the cursor was on,
  // so that the editor rebuilds its track buttons and the current instrument.
  bool makeUndo();
  bool makeRedo();
  int getUndoDepth() const { return m_tabUndo.last(); }
  int getRedoDepth() const { return m_tabRedo.last(); }
  const OneBased<tUndo>& undoStack() const { return m_tabUndo; }
  const OneBased<tUndo>& redoStack() const { return m_tabRedo; }

  // ---- Transposition ------------------------------------------------------
  // `guitare` gives the open strings used to pass a note to its neighbour.
  bool transpose(int bytPiste, int demitons, int fretteMax, int fretteMin, int mesureMin,
                 int mesureMax, const tGuitare& guitare);

  // ---- Page layout query --------------------------------------------------
  // Ticks per printed column of a bar: the power-of-two value of its fastest note.
  int getOnPageViewMode(int bytPiste, int intMesure) const;

  // ---- Whole records, for readers, writers and the renderer ------------------
  bool hasPiste(int p) const { return m_tabPistes.has(p); }
  bool hasMesure(int m) const { return m_tabMesures.has(m); }
  const tPiste& piste(int p) const { return m_tabPistes[p]; }
  tPiste& piste(int p) { return m_tabPistes[p]; }
  const tMesure& mesure(int m) const { return m_tabMesures[m]; }
  tMesure& mesure(int m) { return m_tabMesures[m]; }
  const OneBased<tPiste>& pistes() const { return m_tabPistes; }
  const OneBased<tMesure>& mesures() const { return m_tabMesures; }
  // Null outside the document.
  const tPisteMesure* pisteMesure(int p, int m) const;
  tPisteMesure* pisteMesure(int p, int m);
  const OneBased<tNote>* notes(int p, int m, int c) const;

  bool operator==(const CVantoroTablature&) const = default;

 private:
  OneBased<tNote>* cordeMut(int p, int m, int c);
  tNote* noteMut(int p, int m, int c, int n);
  tPiste defaultPiste(const tGuitare& guitare, byt bytPatch) const;
  void pushPiste(OneBased<tUndo>& pile);
  bool restoreFrom(OneBased<tUndo>& pile, OneBased<tUndo>& autre);
  void truncateMesures(int last);
  bool moveNoteToMesure(int p, int m, int c, const tNote& n, int x);

  OneBased<tPiste> m_tabPistes;
  OneBased<tUndo> m_tabUndo;
  OneBased<tUndo> m_tabRedo;
  OneBased<tMesure> m_tabMesures;
  tMarqueurs m_marqueurs;
  vbool m_TripleFeel = kFaux;
  i16 m_CurseurX = 0;
  byt m_CurseurCorde = 1;
  i16 m_CurseurMesure = 1;
  byt m_CurseurPiste = 1;
};

}  // namespace vt
