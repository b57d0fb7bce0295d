// Keyboard entry, checked on the document, and the Edit menu's clipboards and bar commands.
#include <QAction>
#include <QLabel>
#include <QScrollBar>
#include <tuple>
#include <utility>

#include "ftab_banc.h"

namespace vt::essai {
namespace {

using Entree = Editeur;

TEST_F(Entree, InOverwriteModeTwoDigitsMakeOneFretOnlyAfterAOneOrATwoAndTheKeypadSteps) {
  const struct {
    bool batterie;
    const char* touches;
    int fret;  // typed in turn at the same place
  } kCas[] = {
      {false, "12", 12}, {false, "3", 3},  // 12 is not extended
      {false, "4", 4},                     // nor is 3
      {false, "29", 29}, {false, "23", 23},
      {false, "0", 0},   {false, "5", 5},  // a 0 is not extended on a guitar staff
      {true, "36", 36},  {true, "4", 4},
      {true, "2", 42},  // on a drum staff every fret below ten
  };
  ouvre();
  for (const auto& c : kCas) {
    SCOPED_TRACE(c.touches);
    if (c.batterie != (doc().getStaffType(1) == kStaffBatterie)) {
      ftab->DebugInitialisation();
      doc().setStaffType(1, c.batterie ? kStaffBatterie : kStaffGuitare);
    }
    tape(QString::fromLatin1(c.touches));
    EXPECT_EQ(frets(1, 1), (Frets{{0, c.fret}}));
  }
  // A held key does not type twice.
  ftab->DebugInitialisation();
  ftab->picTab_KeyDown(Qt::Key_1, Qt::NoModifier, false);
  ftab->picTab_KeyDown(Qt::Key_1, Qt::NoModifier, true);
  ftab->picTab_KeyUp(Qt::Key_1, Qt::NoModifier);
  EXPECT_EQ(fret(1, 1, 0), 1);
  // The keypad raises to 29 and lowers to 0; unchanged, nothing to undo; nothing on an empty place.
  const auto pavé = [this](int key, int fois) {
    for (int i = 0; i < fois; ++i)
      touche(key, Qt::KeypadModifier);
    return fret(1, 1, 0);
  };
  ftab->DebugInitialisation();
  tape("28");
  EXPECT_EQ(pavé(Qt::Key_Plus, 1), 29);
  const int profondeur = doc().getUndoDepth();
  EXPECT_EQ(pavé(Qt::Key_Plus, 1), 29);
  EXPECT_EQ(doc().getUndoDepth(), profondeur);
  tape("1");
  EXPECT_EQ(pavé(Qt::Key_Minus, 2), 0);
  curseur(1, 24, 1);
  touche(Qt::Key_Plus, Qt::KeypadModifier);
  EXPECT_EQ(fret(1, 1, 24), -1);
}

TEST_F(Entree, InInsertModeASecondDigitExtendsTheNoteJustTypedSoFretsAboveNineCanBeTyped) {
  const struct {
    const char* touches;  // digits, and "r" for the Right key
    bool batterie;
    Frets frets;  // of string 1 in bar 1
    int curseur;  // the cursor's tick after them
  } kCas[] = {
      {"12", false, {{0, 12}}, 24},
      {"123", false, {{0, 12}, {24, 3}}, 48},  // 12 takes no third digit
      {"29", false, {{0, 29}}, 24},
      {"34", false, {{0, 3}, {24, 4}}, 48},   // a 3 takes no second digit
      {"1r2", false, {{0, 1}, {48, 2}}, 72},  // another key between: two notes
      {"36", true, {{0, 36}}, 24},
  };
  ouvre();
  insertion(true);
  for (const auto& c : kCas) {
    SCOPED_TRACE(c.touches);
    ftab->DebugInitialisation();
    doc().setStaffType(1, c.batterie ? kStaffBatterie : kStaffGuitare);
    for (const char* t = c.touches; *t != 0; ++t)
      touche(*t == 'r' ? int(Qt::Key_Right) : Qt::Key_0 + (*t - '0'));
    EXPECT_EQ(frets(1, 1), c.frets);
    EXPECT_EQ(doc().CurseurX(), c.curseur);
  }
  // The second digit is an edit of its own: undone, the first digit's note stays.
  ftab->DebugInitialisation();
  tape("12");
  touche(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(fret(1, 1, 0), 1);
  // The first digit, in the bar's last column, sent the cursor to a new bar.
  curseur(1, 168, 2);
  tape("12");
  EXPECT_EQ(frets(1, 2), (Frets{{168, 12}}));
  EXPECT_EQ(doc().CurseurMesure(), 2);
  EXPECT_EQ(doc().getNoteLast(1, 2, 2), 0);
}

TEST_F(Entree, KeysAreReadByTheirPlaceSoThatAFrenchKeyboardTypesFretsAndRhythms) {
  // Key events as the X server gives them under "setxkbmap fr": Qt's key and
  // text are what the key prints, the scan code its place.
  const struct {
    const char* quoi;
    int key;
    Qt::KeyboardModifiers mods;
    const char* texte;
    quint32 scanCode, keysym;
    int fret;    // on a note of fret 5 at the cursor, in edit mode
    int rythme;  // the rhythm chosen after it (3, an eighth, before)
  } kCas[] = {
      {"& is 1", Qt::Key_Ampersand, Qt::NoModifier, "&", 10, 0x26, 1, 3},
      {"\xc3\xa9 is 2", Qt::Key_Eacute, Qt::NoModifier, "\xc3\xa9", 11, 0xe9, 2, 3},
      {"\" is 3", Qt::Key_QuoteDbl, Qt::NoModifier, "\"", 12, 0x22, 3, 3},
      {"- is 6, not the keypad's minus", Qt::Key_Minus, Qt::NoModifier, "-", 15, 0x2d, 6, 3},
      {"\xc3\xa0 is 0", Qt::Key_Agrave, Qt::NoModifier, "\xc3\xa0", 19, 0xe0, 0, 3},
      {"Shift+& is 1", Qt::Key_1, Qt::ShiftModifier, "1", 10, 0x31, 1, 3},
      {"Shift+7 with no place is still 7", Qt::Key_7, Qt::ShiftModifier, "", 0, 0, 7, 3},
      {"keypad 7", Qt::Key_7, Qt::KeypadModifier, "7", 79, 0xffb7, 7, 3},
      {"Ctrl+& is the whole note", Qt::Key_Ampersand, Qt::ControlModifier, "", 10, 0x26, 5, 0},
      {"Ctrl+- is the thirty-second", Qt::Key_Minus, Qt::ControlModifier, "", 15, 0x2d, 5, 5},
      {"Ctrl+keypad 3 is the quarter", Qt::Key_3, Qt::ControlModifier | Qt::KeypadModifier, "", 89,
       0xffb3, 5, 2},
      {"Ctrl+2 with no place is the half", Qt::Key_2, Qt::ControlModifier, "", 0, 0, 5, 1},
      {"the main row's - of a US keyboard is no command", Qt::Key_Minus, Qt::NoModifier, "-", 20,
       0x2d, 5, 3},
      {"the keypad's - lowers the fret", Qt::Key_Minus, Qt::KeypadModifier, "-", 82, 0xffad, 4, 3},
      {"the keypad's + raises it", Qt::Key_Plus, Qt::KeypadModifier, "+", 86, 0xffab, 6, 3},
  };
  ouvre();
  for (const auto& c : kCas) {
    SCOPED_TRACE(c.quoi);
    ftab->DebugInitialisation();
    ftab->mnuTabToolRythme(3);
    pose(1, 1, 0, 5);
    ftab->refreshPicture();
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
      QKeyEvent e(type, c.key, c.mods, c.scanCode, c.keysym, 0, QString::fromUtf8(c.texte));
      QApplication::sendEvent(ftab->picTab(), &e);
    }
    EXPECT_EQ(fret(1, 1, 0), c.fret);
    EXPECT_EQ(ftab->outils().rythme, c.rythme);
  }
}

TEST_F(Entree, ARhythmChosenOnANoteKeepsItsValuesAndANoteTakesTheChosenRhythmAttackAndNuance) {
  ouvre();
  curseur(1, 0, 4);
  tape("5");
  touche(Qt::Key_H);  // hammer-on
  touche(Qt::Key_A, Qt::ShiftModifier);
  touche(Qt::Key_2, Qt::ControlModifier);  // half
  ASSERT_NE(note(1, 4, 0), nullptr);
  EXPECT_EQ(*note(1, 4, 0),
            (tNote{5, 96, 0, effet::kHammerOn, 0, attaque::kHarmoniqueArtificielle, 127}));

  curseur(1, 0, 1);
  touche(Qt::Key_3, Qt::ControlModifier);  // quarter
  touche(Qt::Key_H, Qt::ShiftModifier);    // natural harmonic
  ftab->mnuTabToolVolume(3);               // mp
  tape("7");
  ASSERT_NE(note(1, 1, 0), nullptr);
  EXPECT_EQ(*note(1, 1, 0), (tNote{7, 48, 0, 0, 0, attaque::kHarmoniqueNaturelle, nuance::kMP}));

  const Qt::KeyboardModifiers pavé = Qt::ControlModifier | Qt::KeypadModifier;
  curseur(1, 96, 2);
  touche(Qt::Key_Period, pavé);  // dotted
  tape("5");
  EXPECT_EQ(note(1, 2, 96)->bytDurée, 72);
  touches({{Qt::Key_Period, pavé}, {Qt::Key_9, pavé}});  // triplet
  curseur(1, 0, 3);
  tape("5");
  EXPECT_EQ(note(1, 3, 0)->bytDurée, 32);
  touche(Qt::Key_X, Qt::ShiftModifier);  // the attack of the note under the cursor follows
  EXPECT_EQ(note(1, 3, 0)->bytAttaque, attaque::kDeadNote);
}

TEST_F(Entree, OverwriteReplacesInPlaceAndInsertOpensRoomAndMovesOn) {
  ouvre();
  pose(1, 1, 24, 9);
  tape("5");
  EXPECT_EQ(frets(1, 1), (Frets{{0, 5}, {24, 9}}));
  EXPECT_EQ(doc().CurseurX(), 0);
  EXPECT_EQ(vt->panneau("insert")->text(), "EDIT");

  ftab->DebugInitialisation();
  pose(1, 1, 0, 9);
  touche(Qt::Key_Insert, Qt::ControlModifier);
  ASSERT_TRUE(vt->booInsert());
  EXPECT_EQ(vt->panneau("insert")->text(), "INS");
  tape("5");  // an eighth, no longer than a column: the cursor moves one column
  EXPECT_EQ(frets(1, 1), (Frets{{0, 5}, {24, 9}}));
  EXPECT_EQ(doc().CurseurX(), 24);
  tape("1");  // a 5 takes no second digit: a new note
  EXPECT_EQ(frets(1, 1), (Frets{{0, 5}, {24, 1}, {48, 9}}));
  touche(Qt::Key_3, Qt::ControlModifier);  // a quarter moves on by its length
  tape("7");
  EXPECT_EQ(doc().CurseurX(), 96);
  EXPECT_EQ(frets(1, 1), (Frets{{0, 5}, {24, 1}, {48, 7}, {96, 9}}));

  // The last quarter of the bar: the cursor goes to a new bar at the end.
  curseur(1, 144, 2);
  tape("2");
  EXPECT_EQ(doc().getMesureLast(), 2);
  EXPECT_EQ(place(), (Place{2, 0, 2}));
  EXPECT_EQ(ftab->hScroll()->maximum(), 2);
  touche(Qt::Key_Insert, Qt::ControlModifier);
  EXPECT_FALSE(vt->booInsert());
  EXPECT_EQ(vt->panneau("insert")->text(), "EDIT");
}

TEST_F(Entree, EveryEffectKeyAndItsMenuEntrySetTheirCodeEvenOnAnEmptyPlace) {
  ouvre();
  // On an empty place the effect stands on a blank note of the chosen length.
  touche(Qt::Key_4, Qt::ControlModifier);
  touche(Qt::Key_H);
  ASSERT_NE(note(1, 1, 0), nullptr);
  const auto vue = [this] {
    return std::tuple(note(1, 1, 0)->bytCase, note(1, 1, 0)->bytDurée, note(1, 1, 0)->bytEffet);
  };
  EXPECT_EQ(vue(), std::tuple(kCaseVide, 24, effet::kHammerOn));
  // The same key again changes nothing: it sets, it does not toggle.
  const int profondeur = doc().getUndoDepth();
  touche(Qt::Key_H);
  EXPECT_EQ(note(1, 1, 0)->bytEffet, effet::kHammerOn);
  EXPECT_EQ(doc().getUndoDepth(), profondeur);

  const std::vector<std::pair<int, byt>> touches = {
      {Qt::Key_L, 27}, {Qt::Key_K, 24}, {Qt::Key_T, 25}, {Qt::Key_U, 1},
      {Qt::Key_D, 2},  {Qt::Key_H, 3},  {Qt::Key_P, 4},  {Qt::Key_B, 20},
      {Qt::Key_W, 21}, {Qt::Key_C, 22}, {Qt::Key_N, 23}, {Qt::Key_V, 9}};
  tape("5");
  for (const auto& [key, code] : touches) {
    touche(key);
    EXPECT_EQ(note(1, 1, 0)->bytEffet, code) << key;
  }
  // The Effects menu runs the same routine: its first entry is the hammer-on.
  ftab->mnuTabEffet(0);
  EXPECT_EQ(note(1, 1, 0)->bytEffet, effet::kHammerOn);
  ftab->mnuTabEffet(12);  // no effect
  EXPECT_EQ(note(1, 1, 0)->bytEffet, effet::kAucun);
  EXPECT_EQ(note(1, 1, 0)->bytCase, 5);
  // An effect given after an undo is a new edit: nothing is left to redo.
  touche(Qt::Key_Z, Qt::ControlModifier);
  touche(Qt::Key_V);
  touche(Qt::Key_Y, Qt::ControlModifier);
  EXPECT_EQ(note(1, 1, 0)->bytEffet, effet::kVibrato);
}

TEST_F(Entree, PageUpAndDownMoveANoteToTheNextStringAtTheSamePitch) {
  ouvre();
  const auto colonne = [this] {
    return std::vector<int>{fret(1, 1, 0), fret(1, 2, 0), fret(1, 3, 0), fret(1, 4, 0)};
  };
  curseur(1, 0, 2);  // the B string, 59
  tape("5");
  touche(Qt::Key_L);
  touche(Qt::Key_PageUp);
  // 59 + 5 = 64, the open E; the note keeps its values and the cursor goes with it.
  EXPECT_EQ(colonne(), (std::vector<int>{0, -1, -1, -1}));
  EXPECT_EQ(*note(1, 1, 0), (tNote{0, 24, 0, effet::kLiaison, 0, 0, 127}));
  EXPECT_EQ(doc().CurseurCorde(), 1);
  touche(Qt::Key_PageUp);  // no string above the first
  EXPECT_EQ(colonne(), (std::vector<int>{0, -1, -1, -1}));
  touche(Qt::Key_PageDown);
  EXPECT_EQ(colonne(), (std::vector<int>{-1, 5, -1, -1}));
  // The open B cannot go up: it would need a fret below 0.
  tape("0");
  touche(Qt::Key_PageUp);
  EXPECT_EQ(colonne(), (std::vector<int>{-1, 0, -1, -1}));
  // A note on the other string blocks the move.
  pose(1, 3, 0, 2);
  touche(Qt::Key_PageDown);
  EXPECT_EQ(colonne(), (std::vector<int>{-1, 0, 2, -1}));
  // The pop-up's entries do the same.
  curseur(1, 0, 3);
  ftab->mnuTabPopUp(1);
  EXPECT_EQ(colonne(), (std::vector<int>{-1, 0, -1, 7}));  // 55 + 2 = 50 + 7
}

TEST_F(Entree, BackspaceClosesTheColumnBeforeTheCursorInsertOpensOneDeleteTakesANote) {
  ouvre();
  pose(1, 1, 0, 1);
  pose(1, 1, 24, 2);
  pose(1, 1, 48, 3);
  pose(1, 2, 48, 4);
  mesures(2);
  pose(2, 1, 0, 5);
  curseur(1, 48, 1);
  touche(Qt::Key_Backspace);
  EXPECT_EQ(frets(1, 1), (Frets{{0, 1}, {24, 3}, {168, 5}})) << "the next bar closes up too";
  EXPECT_EQ(frets(1, 2), (Frets{{24, 4}}));
  EXPECT_EQ(doc().CurseurX(), 24);
  EXPECT_TRUE(doc().modifi);

  // At the start of a bar the last column of the bar before goes.
  curseur(2, 0, 1);
  touche(Qt::Key_Backspace);
  EXPECT_EQ(frets(1, 1), (Frets{{0, 1}, {24, 3}}));
  EXPECT_EQ(place(), (Place{1, 168, 1}));

  // Nothing stands before the first column of the piece, nor at an empty place.
  curseur(1, 0, 1);
  int profondeur = doc().getUndoDepth();
  touche(Qt::Key_Backspace);
  EXPECT_EQ(fret(1, 1, 0), 1);
  EXPECT_EQ(doc().getUndoDepth(), profondeur);

  // Insert opens one column on every string; Delete takes one note.
  touche(Qt::Key_Insert);
  EXPECT_EQ(frets(1, 1), (Frets{{24, 1}, {48, 3}}));
  EXPECT_EQ(frets(1, 2), (Frets{{48, 4}}));
  curseur(1, 48, 2);
  touche(Qt::Key_Delete);
  EXPECT_EQ(frets(1, 2), Frets{});
  profondeur = doc().getUndoDepth();
  touche(Qt::Key_Delete);
  EXPECT_EQ(doc().getUndoDepth(), profondeur);
}

class Edition : public Editeur {
 protected:
  bool actif(const char* nom) { return ftab->entrée(nom)->isEnabled(); }
};

// Ctrl+X, Ctrl+C and Ctrl+V work the note clipboards as the Edit menu does,
// on the selection they find; the other Ctrl keys still end it. Paste waits
// for a copy and copy for a selection.
TEST_F(Edition, CtrlXCAndVCutCopyAndPasteTheSelection) {
  ouvre();
  pose(1, 1, 0, 3);
  pose(1, 2, 24, 5);
  pose(1, 1, 48, 7);
  ftab->refreshPicture();
  EXPECT_TRUE(ftab->entrée("mnuTabEdit_4")->text().endsWith("\tCtrl+C"));
  for (const char* nom : {"mnuTabEdit_3", "mnuTabEdit_4", "mnuTabEdit_5", "mnuTabEdit_9"})
    EXPECT_FALSE(actif(nom)) << nom;
  EXPECT_FALSE(ftab->bouton("tbToolbar", "coller")->isEnabled());

  // Two columns over two strings, dragged with the mouse.
  glisse(cellule(1, 0, 1), cellule(1, 1, 2));
  ASSERT_TRUE(actif("mnuTabEdit_4"));
  EXPECT_TRUE(ftab->bouton("tbToolbar", "copier")->isEnabled());
  touche(Qt::Key_C, Qt::ControlModifier);
  EXPECT_TRUE(actif("mnuTabEdit_5")) << "copied";
  EXPECT_TRUE(ftab->bouton("tbToolbar", "coller")->isEnabled());
  EXPECT_FALSE(doc().modifi) << "a copy changes nothing";
  EXPECT_NE(doc().intSelStartMesure, 0) << "the selection stays";
  touche(Qt::Key_X, Qt::ControlModifier);
  EXPECT_EQ(std::pair(frets(1, 1), frets(1, 2)), std::pair(Frets{{48, 7}}, Frets{}))
      << "the later note keeps its place";
  curseur(1, 96, 1);
  touche(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(std::pair(frets(1, 1), frets(1, 2)),
            std::pair(Frets{{48, 7}, {96, 3}}, Frets{{120, 5}}));
  touche(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(fret(1, 1, 96), -1) << "Ctrl+Z undoes the paste";
  touche(Qt::Key_Y, Qt::ControlModifier);
  EXPECT_EQ(fret(1, 1, 96), 3) << "Ctrl+Y redoes it";

  // The menu's cut and copy, and the button's paste at the second bar, which Right adds.
  glisse(cellule(1, 2, 1), cellule(1, 2, 1));
  ftab->mnuTabEdit(3);
  EXPECT_EQ(fret(1, 1, 48), -1);
  glisse(cellule(1, 4, 1), cellule(1, 5, 2));
  ftab->entrée("mnuTabEdit_4")->trigger();
  ftab->selClear();
  curseur(1, 168, 1);
  touche(Qt::Key_Right);
  ASSERT_EQ(doc().CurseurMesure(), 2);
  ftab->bouton("tbToolbar", "coller")->trigger();
  EXPECT_EQ(std::pair(frets(2, 1), frets(2, 2)), std::pair(Frets{{0, 3}}, Frets{{24, 5}}));

  // Another Ctrl chord ends a selection before it acts.
  glisse(cellule(1, 0, 1), cellule(1, 1, 2));
  touche(Qt::Key_Down, Qt::ControlModifier);
  EXPECT_EQ(doc().intSelStartMesure, 0);
  // An edit after an undo ends the redo.
  touche(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_TRUE(actif("mnuTabEdit_1"));
  tape("7");
  EXPECT_FALSE(actif("mnuTabEdit_1"));
  EXPECT_EQ(doc().getRedoDepth(), 0);
}

TEST_F(Edition, BarCommandsTakeTheirRangeFromTheDialog) {
  ouvre();
  pose(1, 1, 0, 3);
  std::vector<int> modes;
  PositionsMesures réponse;
  bool ok = true;
  ftab->demandeMesures = [&](int mode, PositionsMesures& p) {
    modes.push_back(mode);
    EXPECT_EQ(p.première, doc().CurseurMesure()) << "the dialog starts at the cursor's bar";
    p = réponse;
    return ok;
  };
  // Insert two bars on every track at bar 1: the note moves to bar 3.
  réponse = {1, 2, true};
  ftab->mnuTabEdit(10);
  EXPECT_EQ(std::pair(doc().getMesureLast(), fret(3, 1, 0)), std::pair(3, 3));
  // Copy bar 3, paste it at bar 1.
  réponse = {3, 1, false};
  ftab->mnuTabEdit(8);
  EXPECT_TRUE(actif("mnuTabEdit_9"));
  curseur(1, 0, 1);
  ftab->mnuTabEdit(9);
  EXPECT_EQ(std::pair(doc().getMesureLast(), fret(1, 1, 0)), std::pair(4, 3));
  // Cancelled: nothing happens.
  ok = false;
  ftab->mnuTabEdit(11);
  EXPECT_EQ(doc().getMesureLast(), 4);
  // Deleted from every track, the cursor comes back inside.
  ok = true;
  réponse = {2, 3, true};
  curseur(4, 0, 1);
  ftab->mnuTabEdit(11);
  EXPECT_EQ(place(), (Place{1, 0, 1}));
  EXPECT_EQ(doc().getMesureLast(), 1);
  EXPECT_EQ(modes, (std::vector<int>{1, 2, 4, 4}));
}

}  // namespace
}  // namespace vt::essai
