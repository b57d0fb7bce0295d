// FTab, the tablature editor: a child window of the main window that shows one
// track of the one document as a strip of bars and lets the user write it
// with the keyboard and the mouse.
//
// Its parts live in separate files: the window and its layout (ftab.cpp), the
// strip widget (ftab_strip.cpp), the keyboard (ftab_keys.cpp, ftab_entry.cpp),
// the cursor (ftab_cursor.cpp), the mouse (ftab_mouse.cpp), the menus
// (ftab_menus.cpp, ftab_commands.cpp), the document's dialogs
// (ftab_dialogs.cpp), the live notes (ftab_sound.cpp), the files and the
// instrument (ftab_file.cpp), the toolbars (ftab_toolbars.cpp), the track
// commands (ftab_pistes.cpp) and playback with recording (ftab_play.cpp):
// `m_joue` is the flag every command tests.
#pragma once

#include <QImage>
#include <QKeySequence>
#include <QMessageBox>
#include <QPointer>
#include <QRect>
#include <QWidget>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "document/types.h"
#include "editor/ftab_toolstate.h"
#include "editor/presse_papiers.h"
#include "render/tab_settings.h"
#include "shell/fenetres.h"

class QAction;
class QLayout;
class QMenu;
class QMenuBar;
class QPrinter;
class QScrollArea;
class QScrollBar;
class QToolBar;

namespace vt {

class VT;
class CVantoroTablature;
class CStripRenderer;
class PainterSurface;
class PicTab;
struct LectureTab;
struct InterchangeResult;
struct RésultatWav;
struct BoutonBarre;
class FTabToolBar;
class fTabDrums;

// The document's dialogs, which the editor opens from its keys and menus. They
// are written apart from the window; `FTab::setOuvreDialogue` connects them. Each
// reads the document and the cursor, and writes back on OK.
enum class DialogueTab {
  Proprietes,       // Alt+Enter, Edit menu 13: the piece and its tracks
  ProprietesPiste,  // Tracks menu: the same, on the tracks page, for the current track
  Transpose,        // Edit menu 15
  Signature,        // S, Edit menu 16: the time signature from the cursor's bar
  Tonalite,         // Q, Edit menu 17: the key signature from the cursor's bar
  BarresMesure,     // Edit menu 18: the bar lines of the cursor's bar
  Tempo,            // Edit menu 19: a tempo change at the cursor
  Texte,            // Tools menu 4: a text at the cursor
  Accord,           // A, Tools menu 5: a chord diagram at the cursor's track, bar and tick
};

class FTab : public QWidget, public FenetreVT, public FenetreTablature {
  Q_OBJECT

 public:
  explicit FTab(VT& vt, QWidget* parent = nullptr);
  ~FTab() override;

  // ---- What the main window asks --------------------------------------------
  void load_lang() override;
  void changeLanguage() override;
  bool isPlaying() const override { return m_joue; }
  int CurseurCorde() const override;
  // The cursor keys of the fretboard, as if typed.
  void picTab_KeyDown(int key) override;
  void picTab_KeyUp() override;
  void key_generic_note(int fret) override;
  void TabMIDINoteOn(int note) override;
  void TabMIDINoteOff(int note) override;
  void refreshPicture() override;
  QMenuBar* barreMenus() const override { return m_barreMenus; }
  void mancheUpdate() override;
  void ouvreLigneDeCommande(const QString& fichier) override;
  void ouvreFichierDéposé(const QString& fichier) override;
  // The chord dictionary's fingering at the cursor: a new diagram there, or
  // the one there replaced, with undo.
  bool placeAccordAuCurseur(const std::string& nom, const std::vector<byt>& cases) override;

  // ---- Keyboard entry ----------------------------------------------------------
  // A key of the strip: Qt's key code and modifiers (the keypad is the
  // KeypadModifier). An auto-repeated press does not enter or sound a note again.
  void picTab_KeyDown(int key, Qt::KeyboardModifiers mods, bool répétition = false);
  void picTab_KeyUp(int key, Qt::KeyboardModifiers mods);
  // Sets an effect on the note at the cursor, or on a blank note made there.
  void key_generic_effect(byt bytEffet);

  // ---- Commands of the menus (indices as the menus number them) -----------------
  void MenuTabFile(int index);
  // Opens a file: the one chosen in the open dialog, or `nom` without it.
  void MenuTabFileOpen(bool boolDialog, const QString& nom = {});
  // Opens one of the recent files, when it still exists.
  void MenuTabFileOpenLast(const QString& nom);
  // 2 save, 3 save as. True when the file was written; false when the dialog
  // was cancelled or the file could not be written.
  bool MenuTabFileSaves(int index);
  // A MIDI file or a text tablature through its dialog, in place of the document.
  void mnuTabFileImportMIDI();
  void mnuTabFileImportASCII();
  // The document to a MIDI file, the cursor's track to a text tablature.
  void mnuTabFileExportMIDI();
  void mnuTabFileExportASCII();
  // Every track, one after another, or the cursor's track, as a PDF of the
  // printed pages.
  void mnuTabFileExportPDF(bool toutesLesPistes);
  // The piece as a WAV file, rendered offline under a progress bar.
  void mnuTabFileExportWAV();
  // Asks whether to save a changed tablature, and saves on Yes. NoButton when
  // nothing was asked; Cancel is the order to stop.
  QMessageBox::StandardButton save_current_file();
  // The file of the document, empty while it has none.
  const QString& fichier() const { return m_fichier; }
  void mnuTabEdit(int index);
  void mnuTabDisplay(int index);
  void mnuTabEffet(int index);
  void mnuTabPlay(int index);
  void mnuTabTool(int index);
  void mnuTabToolRythme(int index);
  void mnuTabToolAttaque(int index);
  void mnuTabToolVolume(int index);
  void mnutabPistes(int index);
  void mnuTabPopUp(int index);

  // ---- The window ------------------------------------------------------------
  // The editor's own start of a fresh document.
  void DebugInitialisation();
  // Removes the selection.
  void selClear();
  // The current instrument follows the cursor's track when the catalogue knows it.
  void updateGlobalGuitar();
  // The menus' marks follow the note under the cursor.
  void tbUpdate();
  // The track entries of the Tracks menu and the track buttons, the current
  // one down; the drum picker shown for a drum track.
  void tbPistesUpdate();
  // The tool tips of the track buttons and the captions of their entries.
  void tbPistesUpdateTextes();
  void disableUndoRedoButtons();
  void updateLastOpenFile();

  // ---- Toolbars (ftab_toolbars.cpp) ----------------------------------------------
  // A toolbar by its name ("tbToolbar", "tbPistes") and a button by its key
  // ("joue", "record", "add", "1", ...); nullptr when there is none.
  QToolBar* barre(const QString& nom) const;
  QAction* bouton(const QString& barre, const QString& clé) const;
  // View menu: shows or hides a toolbar (0 tbGeneral, 1 tbAttaque, 2 tbRythme,
  // 3 tbEffet, 4 tbVolume, 5 tbToolbar, 6 tbPistes), docked or floating.
  void mnuTabDisplayToolbar(int index);
  // Tears a toolbar off into a window of its own; closing it docks it again.
  FTabToolBar* détacheBarre(const QString& nom);
  // The floating window of a toolbar, nullptr while it is docked.
  FTabToolBar* Find_tabFloatingToolBars(const QString& nom) const;
  // The floating window takes the docked toolbar's buttons again.
  void Update_FloatingToolBar(const QString& nom);

  // ---- Playback (ftab_play.cpp) ----------------------------------------------------
  // Starts from the cursor, or between the markers; `intervalle` is the tick
  // period in ms, 60000 / (tempo * 48).
  void timerTabStartPlay(int intervalle);
  void timerTabStartPlayMarker(int intervalle);
  // Stops the player and the timer; closes the recorded notes when recording.
  void timerTabStopPlay();
  // The whole stop: with `boutons`, the play buttons are released; the cursor
  // is put back on the grid and inside the document.
  void TimerMIDIStop(bool boutons) override;
  // One tick of the screen timer: the cursor follows the player.
  void tmrGFX_Timer();
  // The shared fretboard takes the cursor's track's instrument.
  void initFretboard();
  // Recording: the toolbar's "record" is down.
  bool enregistre() const override;
  // Playback's state: the timer, the player it polls (a stand-in in tests),
  // the modes of the run, the shown and the recorded notes.
  LectureTab& lecture();

  // ---- State, for the other parts of the editor and for tests --------------------
  EtatOutils& outils() { return m_outils; }
  const EtatOutils& outils() const { return m_outils; }
  const TabSettings& réglagesVue() const { return m_tab; }
  const QImage& image() const;
  QWidget* picTab() const;
  QScrollBar* hScroll() const { return m_hScroll; }
  // The area the strip scrolls up and down in.
  QScrollArea* zoneBande() const { return m_zoneBande; }
  // A menu entry by its name, "mnuTabEdit_0", "mnuTabDisplay_2", ... (nullptr if none).
  QAction* entrée(const QString& nom) const;

  // Shows a message of the system with its icon (Critical for a file that
  // cannot be read or written); a message box by default.
  std::function<void(const QString& texte, QMessageBox::Icon icône)> message;
  // Asks a question with these buttons and answers the one chosen; a message
  // box with the editor's title by default, whose Help button shows the page
  // the question is about and leaves it open.
  std::function<QMessageBox::StandardButton(const QString& texte,
                                            QMessageBox::StandardButtons boutons)>
      question;
  // The file dialogs: the chosen path, empty when cancelled. `enregistrer`
  // for a save; `dossier` is where it opens (a folder, or a file's path to
  // propose its name), `filtre` the file types, `titre` the caption (empty
  // for the dialog's own).
  std::function<QString(bool enregistrer, const QString& dossier, const QString& filtre,
                        const QString& titre)>
      choisitFichier;
  // The import dialogs (`midi`, or a text tablature) on a chosen file: true
  // when they replaced the document.
  std::function<bool(bool midi, const QString& chemin)> dialogueImport;
  // The bar range dialog of the bar commands (mode 1 insert, 2 copy, 3 cut,
  // 4 delete): true on OK with the range in `positions`.
  std::function<bool(int mode, PositionsMesures& positions)> demandeMesures;
  // Printing: the system's print dialog (true to print, with the pages and
  // copies left in the printer), the print preview and the page setup (true
  // on OK). Modal windows by default; tests put their own.
  std::function<bool(QPrinter& printer, int pages)> dialogueImpression;
  std::function<void()> ouvreApercu;
  std::function<bool()> ouvreMiseEnPage;
  // What the pages are drawn with, from the settings of the main window.
  TabSettings réglagesPage() const;
  // The clipboards of notes and of bars.
  const PressePapierNotes& pressePapierNotes() const { return m_pressePapierNotes; }
  const PressePapierMesures& pressePapierMesures() const { return m_pressePapierMesures; }
  // The drum picker, once a drum track has been current (nullptr before).
  fTabDrums* batterie() const;
  // The document's dialogs: `ouvre` shows one modally and answers true when
  // the user accepted; the entries and keys of the dialogs not in
  // `disponibles` stay disabled. The editor connects its own at load
  // (ftab_dialogs.cpp); tests put theirs.
  void setOuvreDialogue(std::function<bool(DialogueTab)> ouvre,
                        std::vector<DialogueTab> disponibles);
  bool dialogueDisponible(DialogueTab d) const;

 protected:
  void closeEvent(QCloseEvent* e) override;

 private:
  friend class PicTab;

  CVantoroTablature& doc() { return m_doc; }
  const CVantoroTablature& doc() const { return m_doc; }
  int piste() const;
  int nbCordes() const;

  // ---- Strip (ftab.cpp) ----
  void Form_Resize(int largeur, int hauteur);
  void hScroll_Change(int valeur);
  void limitesDéfilement();
  // Copies the "Tab" settings the strip reads, keeping the view scale.
  void appliqueRéglages();
  // The full paint of the strip.
  void drawInLine();
  // Shows on screen what changed in the picture since the last call: the bars
  // marked by salitMesureCurseur, or all of it.
  void montreImage();
  void salitMesureCurseur();
  void libelléFenêtre();
  // The title bar's mark of unsaved changes follows the document.
  void marqueModifiéTitre();
  // Where a file dialog opens: the remembered folder when the settings keep
  // one and it exists, else the user's documents folder.
  QString dossierDialogue() const;
  // What an export dialog proposes: the document's file with this extension
  // in place of its own; the dialogs' folder for an unnamed document.
  QString autreExtension(const QString& extension) const;

  // ---- Cursor (ftab_cursor.cpp) ----
  // Every change of the picture under the cursor and the selection hides them
  // first and shows them again after: they are painted by raster modes. Hiding
  // them tints the ink they lay over, so the cursor's bar is drawn again
  // (`restaure`) unless the caller redraws it or the strip anyway.
  void cacheCurseur(bool restaure = true);
  // Ends a command: the view follows the cursor (unless `suivre` is false), the
  // strip is painted whole when `plein` or when it scrolled, otherwise the
  // cursor and the selection are shown again; then the status bar, the
  // fretboard and the menus follow.
  void termine(bool plein, bool suivre = true);
  // After every move: the status bar, the fretboard, the menus' marks.
  void curseurDéplacé();
  // Sets the first bar shown so that the cursor's bar is on screen; true when it changed.
  bool suisCurseur();
  void setPremièreMesure(int mesure);
  // The moves change the document's cursor only; true when a bar was added.
  void curseurGauche();
  bool curseurDroite();
  void curseurCorde(int delta);
  void mesureVoisine(int delta);
  bool mesureSuivanteOuNouvelle();
  void changeVue(int mode, bool triolet);
  void allerMesure(int mesure, int x);

  // ---- Keys (ftab_keys.cpp) ----
  bool toucheMaj(int key);
  bool toucheCtrl(int key, Qt::KeyboardModifiers mods);
  void toucheSimple(int key, Qt::KeyboardModifiers mods, bool répétition);

  // ---- Edits (ftab_entry.cpp) ----
  void saisitCase(int fret, bool chiffre);
  // Whether a digit typed after this fret makes one fret of the two.
  bool deuxChiffres(int p, int ancienne) const;
  // In insert mode, a digit right after the first digit's note: that note
  // takes both digits when they make one fret; false when they do not.
  bool secondChiffreInséré(int fret);
  // The cursor after a note typed in insert mode; true when a bar was added.
  bool avanceAprèsNote(int durée);
  void changeCase(int delta);
  void déplaceVersCorde(int delta);
  void toucheRetour();
  void toucheInser();
  void toucheSuppr();
  // Before a one-note edit: hides the cursor and wipes the cursor's bar when it
  // can be drawn again alone; true when the strip must be painted whole instead.
  bool avantEdition();
  // After it: draws the bar again, unless the strip is to be painted whole,
  // which it must be too when the edit made an effect reach the next bar.
  // Answers whether the strip is to be painted whole.
  bool apresEdition(bool plein);
  // The cursor's bar can be wiped and drawn alone: no effect of its notes
  // reaches into the next bar, and none of the bar before reaches into it.
  bool mesureSeule() const;
  // The note at the cursor takes the length, the attack or the nuance of the
  // entry state, its other values kept.
  void noteAuCurseurSuitOutils(bool durée, bool attaque, bool volume);
  void marqueModifié();

  // ---- Live notes (ftab_sound.cpp) ----
  void MIDISetCanalPptes(int p);
  int canalPiste(int p) const;
  int noteMIDI(int p, int corde, int fret) const;
  void sonneColonne();
  void sonneNote(int note);
  void arrêteNotes();

  // ---- Mouse (ftab_mouse.cpp) ----
  void picTab_MouseDown(double x, double y, Qt::MouseButton bouton);
  void picTab_MouseMove(double x, double y, Qt::MouseButtons boutons);
  void picTab_MouseUp(double x, double y, Qt::MouseButton bouton);
  void placeCurseurSouris(double x, double y);

  // ---- Menus (ftab_menus.cpp) ----
  void créeMenus();
  QMenu* menu(QMenu* parent, const QString& nom, int titre);
  // An entry named `nom` whose caption is string `texte`, followed by the key
  // that does the same on the strip when there is one.
  QAction* ajoute(QMenu* menu, const QString& nom, int texte, std::function<void()> commande,
                  const QKeySequence& touche = {}, bool cochable = false);
  void libellésMenus();
  void disponibilités();
  void marquesOutils();
  void marquesVue();

  // ---- Tracks (ftab_pistes.cpp) ----
  int nbBoutonsPistes() const;
  void disponibilitésPistes();
  void montreBatterie(bool oui);

  // ---- Toolbars (ftab_toolbars.cpp) ----
  void créeBarres();
  QToolBar* créeBarre(const QString& nom, const BoutonBarre* boutons, std::size_t n);
  // The toolbars above the strip, in their rows.
  QLayout* rangéesBarres();
  // The toolbars hidden in the settings are hidden.
  void barresDesRéglages();
  bool barreMontrée(const QString& nom) const;
  void montreBarre(const QString& nom, bool oui);
  void marquesBarres();
  // The pop-up of a toolbar: float it, or dock it again.
  void menuBarre(const QString& nom, const QPoint& où);
  int Find_FreeIndex4tabFloatingToolBars();
  // The objects of the cursor's bar: a chord, a text, a tempo at the cursor.
  void tbUpdateGeneral();
  QAction* ajouteBouton(QToolBar* barre, const QString& clé, const QString& image, bool basculant);
  void bullesBarres();
  // The buttons take the availability of their menu entries, the view buttons
  // their marks.
  void boutonsSuiventMenus();

  // ---- Playback (ftab_play.cpp) ----
  // Connects the play buttons ("joue", "jouemarker", "record" of tbToolbar),
  // the screen timer and the MIDI input; called once, after the toolbars exist.
  void connecteJeu();
  // The Play menu's and the play buttons' availability.
  void disponibilitésJeu();
  // The commands of the play buttons, which have just gone down or up; the
  // menu's entries and Space toggle the buttons and come here.
  void commandeJoue(bool enfoncé);
  void commandeJoueMarqueurs(bool enfoncé);
  void commandeEnregistre(bool enfoncé);
  // What a start shares, between or not between the markers: the options,
  // the player, the fretboard and the timer.
  void démarreJeu(int intervalle);
  void relâcheBouton(const char* clé);
  // The tick's parts: the fretboard shows the notes sounding; the cursor is
  // shown again where the player stands.
  void mancheJeu();
  void montreCurseurJeu();
  // Makes `mesure` the first bar shown and repaints, unless it is already;
  // true when it repainted.
  bool défileVers(int mesure);
  // Recording (ftab_record.cpp). A note of the MIDI input while recording:
  // pressed, it waits at the cursor; released, it is written from where it
  // began to the cursor.
  void noteMidiEnregistrée(int corde, int note, bool enfoncée);
  // Writes the note held on `corde` from its start to (mesure, x), cut at the
  // bar lines and tied across them, and forgets it.
  void écritNoteEnregistrée(int corde, int mesure, int x);
  void fermeNotesEnregistrées();

  // ---- Dialogs, files and the instrument (ftab_commands.cpp, ftab_file.cpp) ----
  void dialogue(DialogueTab d);
  void connecteDialogues();
  void connecteImports();
  // ---- Printing (ftab_impression.cpp) ----
  void connecteImpression();
  void imprime();
  void importe(bool midi);
  void nouveauDocument();
  // The clipboards' commands of the Edit menu (3, 4, 5, 7 to 11).
  void commandePressePapier(int index);
  // A broken repeat mark: asks whether to go and see it, and goes there on
  // Yes. The answer, NoButton when the marks are right.
  QMessageBox::StandardButton allerAuRenvoiCassé();
  // The messages of an import or an export.
  void rapporte(const InterchangeResult& r);
  // Renders the piece into `fichier` on a thread while a progress bar with
  // Cancel runs; the result says whether it was written or cancelled.
  RésultatWav rendWav(const QString& fichier);
  // Reads a file into the document; true when it was read. On failure the
  // document stays as it was and the reader's messages are shown.
  bool ouvreFichier(const QString& fichier);

  VT& m_vt;
  CVantoroTablature& m_doc;  // the one document, refilled by new and open, never replaced
  TabSettings m_tab;
  std::unique_ptr<PainterSurface> m_surface;
  std::unique_ptr<CStripRenderer> m_renderer;
  PicTab* m_picTab = nullptr;
  QScrollArea* m_zoneBande = nullptr;
  QScrollBar* m_hScroll = nullptr;
  QMenuBar* m_barreMenus = nullptr;
  QMenu* m_mnuTabPopUp = nullptr;
  std::map<QString, QMenu*> m_menus;      // the menus by name ("mnuTabFile", ...)
  std::map<QString, QAction*> m_entrées;  // their entries by name and index
  struct Libellé {
    QAction* action;
    int texte;
    QKeySequence touche;
  };
  std::vector<Libellé> m_libellés;
  std::map<QString, QToolBar*> m_barres;                     // the toolbars by name
  std::map<QString, QAction*> m_boutons;                     // their buttons by "toolbar/key"
  std::vector<Libellé> m_bulles;                             // the buttons' tool tips
  std::vector<std::pair<QAction*, QString>> m_boutonsMenus;  // a button and its menu entry
  std::vector<QPointer<FTabToolBar>> m_tabFloatingToolBars;  // the floating toolbars
  std::vector<QAction*> m_entréesPistes;  // the Tracks menu's entry of each track
  std::vector<QAction*> m_boutonsPistes;  // the toolbar's button of each track
  QPointer<fTabDrums> m_batterie;
  std::function<bool(DialogueTab)> m_ouvreDialogue;
  std::vector<DialogueTab> m_dialogues;  // the dialogs that exist
  EtatOutils m_outils;
  PressePapierNotes m_pressePapierNotes;
  PressePapierMesures m_pressePapierMesures;
  bool m_joue = false;  // playback runs
  // Playback's own state: the screen timer, the play arrays, the modes, the
  // notes shown on the fretboard and the recording (ftab_play.h).
  std::unique_ptr<LectureTab> m_lecture;
  bool m_glisse = false;            // the left button is held over the strip
  bool m_défilementBloqué = false;  // the scroll bar is being set by the program
  QString m_fichier;                // the file of the document, empty when new
  QString m_aideQuestion;           // the help page of the question being asked
  QRect m_sale;                     // what changed in the picture, not yet on screen
  bool m_toutSale = true;           // the whole picture changed
  // Notes sounding while their key is held: (channel, note).
  std::vector<std::pair<int, int>> m_notesTenues;
  // The note a digit last wrote in insert mode and where the cursor went
  // then; any other key forgets it.
  struct CaseTapée {
    int piste, mesure, corde, x, fret;
    int aprèsMesure, aprèsX;
  };
  std::optional<CaseTapée> m_caseTapée;
};

}  // namespace vt
