// What the main window asks of the windows it holds. A window made through the
// registry implements FenetreVT; the editor also implements FenetreTablature,
// the options dialog FenetreOptions.
#pragma once

#include <QString>
#include <cstdint>
#include <string>
#include <vector>

class QMenuBar;

namespace vt {

class FenetreVT {
 public:
  virtual ~FenetreVT() = default;
  // Sets every caption, tooltip and list entry in the current language.
  virtual void load_lang() = 0;
  // A change of language: load_lang, plus what the window must rebuild or
  // redraw (the chord list and the chord on the fretboard, for instance).
  virtual void changeLanguage() { load_lang(); }
  // Sets the window's pictures from the current skin.
  virtual void load_skin() {}
  // Draws again on the fretboard what this window shows there.
  virtual void drawMancheContenu() {}
  // A note played on the fretboard (the harmonizer listens to them).
  virtual void receiveNote(int note) { (void)note; }
  // The options dialog's OK has changed the settings. The chord window marks
  // its chord as new, since the search parameters may have changed; a window
  // that shows a setting takes it again. The fretboard's dots are asked for
  // afterwards (drawMancheContenu), the skin through load_skin.
  virtual void optionsAppliquées() {}
  // A window with menus of its own: while it is the active one, the main
  // window's menu bar shows them in place of the File menu.
  virtual QMenuBar* barreMenus() const { return nullptr; }
};

// The tablature editor as the fretboard and the start-up reach it.
class FenetreTablature {
 public:
  virtual ~FenetreTablature() = default;
  virtual bool isPlaying() const = 0;
  // The MIDI input is being written into the document rather than sounded.
  virtual bool enregistre() const { return false; }
  virtual int CurseurCorde() const = 0;
  // The cursor keys (Qt::Key_Up, Qt::Key_Down) as if typed in the editor.
  virtual void picTab_KeyDown(int key) = 0;
  // The release of the key a press on the fretboard stood for.
  virtual void picTab_KeyUp() = 0;
  virtual void key_generic_note(int fret) = 0;
  virtual void TabMIDINoteOn(int note) = 0;
  virtual void TabMIDINoteOff(int note) = 0;
  virtual void refreshPicture() = 0;
  // Stops playback (and recording) cleanly; with `boutons`, the play buttons
  // are released. The options dialog calls it before it changes the output.
  virtual void TimerMIDIStop(bool boutons) { (void)boutons; }
  // The yellow dots of the notes under the cursor, on a cleared fretboard.
  virtual void mancheUpdate() = 0;
  // The command line's ".vtb" (the whole line as it stands), once the editor is shown.
  virtual void ouvreLigneDeCommande(const QString& fichier) = 0;
  // One ".vtb" dropped on the main window.
  virtual void ouvreFichierDéposé(const QString& fichier) = 0;
  // A chord diagram from the chord dictionary at the cursor, with undo: its
  // name and the frets of strings 1 to n (element 0 unused, 255 for a string
  // not played). False when the editor cannot take it now.
  virtual bool placeAccordAuCurseur(const std::string& nom,
                                    const std::vector<std::uint8_t>& cases) {
    (void)nom;
    (void)cases;
    return false;
  }
};

// The chord dictionary as another tool reaches it: show one chord, the key as
// an index of the key list (0 "A" to 11 "G#") and the type as the standard
// list's text ("maj", "7", "min7 5b", ...). False when the type is unknown.
class FenetreAccords {
 public:
  virtual ~FenetreAccords() = default;
  virtual bool montreAccord(int tonalité, const QString& type) = 0;
};

// The options dialog, shown on one of its pages by key: "KeyDiv", "KeyTab",
// "KeyGam", "accords", "KeyMét", "KeyMidi", "KeyMidiIn".
class FenetreOptions {
 public:
  virtual ~FenetreOptions() = default;
  // Fills the controls from the settings and the system's lists; called at
  // every opening, so that what a Cancel left in them is gone.
  virtual void Form_Load() {}
  virtual void selectTab(const QString& clé) = 0;
};

}  // namespace vt
