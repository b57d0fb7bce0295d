// VT, the main window and the application object: it owns what the whole
// program shares (the settings, the program's folder, the current instrument,
// the one document, the MIDI ports, the registry of windows) and hands it by
// reference to the windows it creates. Its load is the boot sequence and its
// close the shutdown.
#pragma once

#include <QIcon>
#include <QMainWindow>
#include <QPointer>
#include <QString>
#include <array>
#include <functional>
#include <memory>

#include "document/records.h"
#include "document/tablature.h"
#include "formats/string_table.h"
#include "shell/fenetres.h"
#include "shell/settings.h"
#include "shell/son.h"
#include "shell/window_registry.h"

class QAction;
class QActionGroup;
class QDialog;
class QLabel;
class QMdiArea;
class QMdiSubWindow;
class QMenuBar;
class QMenu;
class QPrinter;
class QToolBar;

namespace vt {

class Manche;
class PanneauStatut;
class FAideNavigateur;

// The fixed note names, index 0 being A: the pitch class of MIDI note m is (m + 3) % 12.
inline constexpr std::array<const char*, 12> kNotes = {"A",  "A#", "B", "C",  "C#", "D",
                                                       "D#", "E",  "F", "F#", "G",  "G#"};

class VT : public QMainWindow {
  Q_OBJECT

 public:
  // How the boot meets the user; tests replace the modal parts.
  struct Interactions {
    std::function<i16()> getLang;        // the language dialog FLang
    std::function<void(QDialog&)> exec;  // shows a modal window
    std::function<void(const QString& texte, const QString& titre)> critique;
    std::function<void(const QString& texte)> information;
    // What the sound has to say at start (no SoundFont, no audio device); by
    // default a window that does not wait for an answer, and none offscreen.
    std::function<void(const QString& texte)> avertissement;
  };

  struct Démarrage {
    QString ligneDeCommande;            // the command line after the program's name, as typed
    QString strAppPath;                 // empty: the folder of the executable
    QString dossierDonnéesUtilisateur;  // empty: the user's data folder (file association)
    bool rafraîchirBureau = true;       // refresh the desktop's databases after writing
  };

  explicit VT(QWidget* parent = nullptr);
  ~VT() override;

  // ---- Start and stop ---------------------------------------------------------
  // The boot sequence. False when the program must end at once (a required
  // file is missing); nothing has been saved then.
  bool MDIForm_Load(const Démarrage& d);
  void setInteractions(const Interactions& i);
  // Each step of the boot and of the shutdown is reported by name.
  void setObservateur(std::function<void(const QString&)> o) { m_observateur = std::move(o); }
  // The MIDI ports; by default those of the system.
  void setSon(std::unique_ptr<SonLive> son);
  // A note of the MIDI input: to the editor when it is loaded, else sounded
  // on the settings' channel and handed to the harmonizer.
  void noteMidiEntrante(int corde, int note, bool enfoncee);
  // What the sound has to say since it last spoke (no SoundFont, a port that
  // cannot be opened), in one notice over the window; nothing when all is well.
  void montreMessagesSon();

  // ---- What the windows share -------------------------------------------------
  Settings& settings() { return m_settings; }
  const Settings& settings() const { return m_settings; }
  int setLang() const { return m_settings.setLang; }
  const QString& strAppPath() const { return m_strAppPath; }
  const std::array<QString, 12>& strNotes() const { return m_strNotes; }
  tGuitare& guitare() { return m_guitare; }
  const tGuitare& guitare() const { return m_guitare; }
  // The one document; exists from the end of initialize.
  CVantoroTablature& document() { return *m_document; }
  bool hasDocument() const { return m_document != nullptr; }
  bool booInsert() const { return m_booInsert; }
  SonLive& son() { return *m_son; }
  RegistreFenetres& fenetres() { return m_fenetres; }
  QMdiArea* mdiArea() const { return m_mdi; }
  // The printer the page setup and the printing share, made on first use.
  QPrinter& printer();

  // ---- Texts and pictures -------------------------------------------------------
  QString loadString(int id) const;
  QString loadString(StringId id) const { return loadString(id.id); }
  QString skinFile(int index) const;
  QString skinTicTac(int frame) const;
  // The chosen skin's own folder, where animation frames are looked for.
  QString skinFolder() const;
  // The help folder of the current language, "<strAppPath>help/fr/" or ".../en/".
  QString dossierAide() const;

  // Makes instrument `index` of "vt.ini" the current one, its name in the
  // current language; the status bar's "guitare" panel shows it.
  void loadGuitare(int index);

  // ---- The main window's commands ---------------------------------------------
  void MenuGlobalFile(int index);
  void mnuFileLang_Click(int index);
  void mnuFen_Click(int index);
  void mnuAide_Click(int index);
  // Brings a window to the front, loading it when needed; nullptr when this
  // build has no such window.
  QWidget* montreFenetre(const QString& nom);
  bool isFormLoaded(const QString& nom) const { return m_fenetres.isFormLoaded(nom); }
  // The options dialog on one of its pages ("KeyMidi", ...), modal.
  void montreOptions(const QString& onglet = {});
  // The help window on a page of the current language ("index.html",
  // "options.html#midi"); with `recherche`, on its search field.
  void montreAide(const QString& page, bool recherche = false);
  void montreAstuce();

  void setStatusText(int id);
  void setStatusPosition(int curseurMesure, int curseurX);
  void setStatusMidi();
  void toggleInsert();
  void changeLanguage();
  void load_lang();
  // Visibility of the toolbar, the status bar and the fretboard from the
  // settings; the quick-access window when it is to open at start.
  void applyViewSettings();
  // A new skin: the windows with pictures load theirs again (the chords, the
  // tuner, the scales, the harmonizer, the metronome, in that order), and the
  // fretboard its wood.
  void changeSkin(const QString& strSkinPath);
  void showHourglass(bool on);
  // Closes every window, as the menu command does.
  void quitter() { close(); }

  // The chrome, for the windows that follow it and for tests.
  QToolBar* toolbar() const { return m_toolbar; }
  // A toolbar button by key ("accords", "manche", ...).
  QAction* boutonBarre(const QString& clé) const;
  // A status bar panel by key ("position", "guitare", "midi", "insert"); the
  // hint panel for an empty key.
  QLabel* panneau(const QString& clé) const;
  QAction* mnuFen(int index) const { return m_mnuFen.at(static_cast<std::size_t>(index)); }
  QAction* mnuFile(int index) const { return m_mnuFile.at(static_cast<std::size_t>(index)); }
  QAction* mnuFileLang(int index) const {
    return m_mnuFileLang.at(static_cast<std::size_t>(index));
  }
  QAction* mnuAide(int index) const { return m_mnuAide.at(static_cast<std::size_t>(index)); }
  // Menu entries and buttons follow the windows that the registry knows.
  void disponibilités();

  // ---- The fretboard ------------------------------------------------------------
  Manche& manche() { return *m_manche; }
  // What the strip shows: 0 chord, 1 scale, 2 tuner, 3 harmonizer, 4 tablature.
  byt mancheContenu() const { return m_mancheContenu; }
  void setMancheContenu(byt c) { m_mancheContenu = c; }
  void load_picManche_picture();
  void updateManche();
  void clearManche();
  void drawMancheContenu();
  void drawRond(int c, int s, int couleur);
  void printManche(int c, int s, const QString& texte);
  void setMancheVisible(bool visible);
  // The note the pointer was last over, and the last one sounded.
  int noteSouris() const { return m_noteSouris; }
  int derniereNote() const { return m_dernièreNote; }

 signals:
  // Every note of the MIDI input, on this thread: the string its channel
  // stands for, the note, pressed or released (the editor's recording).
  void noteMidiRecue(int corde, int note, bool enfoncee);

 protected:
  void closeEvent(QCloseEvent* e) override;
  void dragEnterEvent(QDragEnterEvent* e) override;
  void dropEvent(QDropEvent* e) override;

 private:
  // Boot steps.
  void étape(const QString& nom);
  void load_ini();
  bool initialize(const Démarrage& d);
  void load_resource();
  void appliqueGéométrie();
  void ligneDeCommande(const QString& ligne);
  void fenêtresAuDémarrage();
  void Form_Unload();

  // Chrome.
  void créeMenus();
  // The menus of the active child window, when it has its own, take the File
  // menu's place in the menu bar; the Window and Help menus stay.
  void menusDeLaFenêtreActive(QMdiSubWindow* active);
  void créeBarreOutils();
  void créeBarreEtat();
  void libellésMenus();
  void libellésBarre();
  void arrangeIcônes();
  void mosaïque(Qt::Orientation sens);

  // Fretboard events.
  void picManche_MouseMove(int c, int s, Qt::MouseButtons boutons);
  void picManche_MouseDown(int c, int s, Qt::MouseButton bouton);
  void picManche_MouseUp();
  void joueNote(int note);
  FenetreTablature* éditeurActif() const;

  // Shared state.
  Settings m_settings;
  QString m_strAppPath;
  std::array<QString, 12> m_strNotes;
  tGuitare m_guitare;
  std::unique_ptr<CVantoroTablature> m_document;
  bool m_booInsert = false;
  byt m_mancheContenu = 0;
  std::unique_ptr<SonLive> m_son;
  RegistreFenetres m_fenetres;
  std::unique_ptr<QPrinter> m_printer;
  Interactions m_interactions;
  std::function<void(const QString&)> m_observateur;
  bool m_portsOuverts = false;

  // The fretboard's memory of the pointer.
  int m_survolCase = -1;
  int m_survolCorde = -1;
  int m_dernièreNote = -1;
  int m_noteSouris = -1;

  // Chrome.
  QMdiArea* m_mdi = nullptr;
  QPointer<QMenuBar> m_barreEmpruntée;  // the child's menu bar whose menus are shown
  Manche* m_manche = nullptr;
  std::array<QMenu*, 3> m_mnu{};
  QMenu* m_menuLangue = nullptr;
  std::array<QAction*, 6> m_mnuFile{};
  std::array<QAction*, 2> m_mnuFileLang{};
  std::array<QAction*, 12> m_mnuFen{};
  std::array<QAction*, 11> m_mnuAide{};
  QActionGroup* m_groupeLangue = nullptr;
  QToolBar* m_toolbar = nullptr;
  std::vector<std::pair<QString, QAction*>> m_boutons;  // by key, in their order
  QList<QIcon> m_imageList;                             // the toolbar's images, 1 to 12
  QLabel* m_panneauTexte = nullptr;
  PanneauStatut* m_position = nullptr;
  PanneauStatut* m_panneauGuitare = nullptr;
  PanneauStatut* m_midi = nullptr;
  PanneauStatut* m_insert = nullptr;
  int m_statusTextId = 0;
  QPointer<FAideNavigateur> m_aide;
};

}  // namespace vt
