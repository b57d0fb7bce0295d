// The editor's toolbars: each button does what its menu entry does and shows
// its state; the rhythm, attack and nuance buttons change the note under the
// cursor with undo; the objects' buttons show what stands at the cursor; a
// toolbar floats and docks again, and the hidden ones are remembered.
#include <QAction>
#include <QSignalSpy>
#include <QToolBar>
#include <map>

#include "ftab_banc.h"
#include "ftab_play.h"
#include "ftab_toolbar.h"

namespace vt::essai {
namespace {

using Barres = Editeur;

// A quarter note (48 ticks), fret 5 on string 2 at the start of bar 1, under the cursor.
void noteSousLeCurseur(CVantoroTablature& d, FTab& f) {
  const int n = d.setNoteWhole(1, 1, 2, 0, 5, 48);
  d.setNoteVolume(1, 1, 2, n, 127);
  d.setCurseurCorde(2);
  d.setCurseurX(0);
  f.refreshPicture();
  f.tbUpdate();
}

// The options dialog, writing down the page it was opened on.
class OptionsEssai : public FenetreEssai, public FenetreOptions {
 public:
  OptionsEssai(VT& v, Journal& j) : FenetreEssai(v, fen::FOptions, j) {}
  void selectTab(const QString& clé) override { m_j.push_back("FOptions " + clé); }
};

// A player that plays nothing, for the play buttons.
class JoueurMuet : public JoueurTab {
 public:
  void start(const CVantoroTablature&, PlayArrays&, const OptionsJeu&, const DemandeJeu&) override {
  }
  void stop() override {}
  std::int32_t x() override { return 0; }
  std::int32_t mesure() override { return 1; }
  std::int32_t renvoi() override { return 0; }
  std::int32_t note(std::int16_t) override { return 0; }
  std::int32_t durée(std::int16_t) override { return 0; }
  void piste(std::int16_t) override {}
};

// What a button stands for: a menu entry it runs (and, with `code` 1, is down
// after), the length, attack, nuance or effect code it writes, a play button,
// the options' page, the first track.
enum class Genre { Entrée, Durée, Attaque, Nuance, Effet, Jeu, Options, Piste };
struct Bouton {
  const char* barre;
  const char* clé;
  Genre genre;
  const char* entrée;
  int code;
};

// Every button of the seven toolbars, as the toolbars' table and the codes' tables give them.
const std::vector<Bouton> kBoutons = [] {
  std::vector<Bouton> v;
  using Paire = std::pair<const char*, const char*>;
  const auto entrées = [&v](const char* barre, std::initializer_list<Paire> l, int code = 0) {
    for (const auto& [clé, entrée] : l)
      v.push_back({barre, clé, Genre::Entrée, entrée, code});
  };
  const auto codes = [&v](const char* barre, Genre g,
                          std::initializer_list<std::pair<const char*, int>> l) {
    for (const auto& [clé, code] : l)
      v.push_back({barre, clé, g, nullptr, code});
  };
  entrées("tbToolbar", {{"nouveau", "mnuTabFile_0"},
                        {"ouvrir", "mnuTabFile_1"},
                        {"enregistrer", "mnuTabFile_2"},
                        {"imprimer", "mnuTabFile_11"},
                        {"preview", "mnuTabFile_12"},
                        {"pagesetup", "mnuTabFile_14"},
                        {"proprietes", "mnuTabEdit_13"},
                        {"arriere", "mnuTabPlay_1"},
                        {"avant", "mnuTabPlay_2"},
                        {"couper", "mnuTabEdit_3"},
                        {"copier", "mnuTabEdit_4"},
                        {"coller", "mnuTabEdit_5"},
                        {"undo", "mnuTabEdit_0"},
                        {"redo", "mnuTabEdit_1"},
                        {"redraw", "mnuTabDisplay_10"}});
  entrées("tbToolbar",
          {{"view_mode_1", "mnuTabDisplay_0"},
           {"view_mode_2", "mnuTabDisplay_1"},
           {"view_mode_3", "mnuTabDisplay_2"},
           {"view_mode_4", "mnuTabDisplay_3"},
           {"view_mode_triolet", "mnuTabDisplay_4"}},
          1);
  for (const auto& [clé, entrée] :
       {Paire{"joue", "mnuTabPlay_0"}, Paire{"jouemarker", "mnuTabPlay_3"},
        Paire{"record", "mnuTabPlay_10"}})
    v.push_back({"tbToolbar", clé, Genre::Jeu, entrée, 0});
  v.push_back({"tbToolbar", "options", Genre::Options, "mnuTabFile_16", 0});
  entrées("tbGeneral", {{"texte", "mnuTabTool_4"},
                        {"accord", "mnuTabTool_5"},
                        {"accordcreate", "mnuTabTool_6"},
                        {"signature", "mnuTabEdit_16"},
                        {"loop", "mnuTabEdit_18"},
                        {"tempo", "mnuTabEdit_19"}});
  codes("tbEffet", Genre::Effet,
        {{"hammer-on", 3},
         {"pull-off", 4},
         {"slide up", 1},
         {"slide down", 2},
         {"vibrato", 9},
         {"bendup", 20},
         {"bendupdn", 21},
         {"bendreturn", 22},
         {"benddn", 23},
         {"tremolo", 24},
         {"trill", 25},
         {"liaison", 27}});
  codes("tbRythme", Genre::Durée,
        {{"ronde", 192},
         {"blanche", 96},
         {"noire", 48},
         {"croche", 24},
         {"double", 12},
         {"triple", 6},
         {"pointée", 72} /* on a quarter */,
         {"triolet", 32}});
  codes("tbAttaque", Genre::Attaque,
        {{"attaque none", 0},
         {"attaque tap", 3},
         {"attaque slap", 4},
         {"attaque pop", 5},
         {"attaque harm", 1},
         {"attaque ah", 2},
         {"attaque up", 7},
         {"attaque dn", 8},
         {"attaque dead note", 9},
         {"attaque palmmute", 6},
         {"attaque brush up", 10},
         {"attaque brush dn", 11}});
  codes("tbVolume", Genre::Nuance,
        {{"ppp", 15},
         {"pp", 31},
         {"p", 47},
         {"mp", 63},
         {"mf", 79},
         {"f", 95},
         {"ff", 111},
         {"fff", 127}});
  entrées(
      "tbPistes",
      {{"add", "mnutabPistes_1"}, {"remove", "mnutabPistes_2"}, {"properties", "mnutabPistes_3"}});
  codes("tbPistes", Genre::Piste, {{"1", 1}});
  return v;
}();

// The field of the note at (1, 1, 2, 0) that a button of this kind writes, and its setter.
byt tNote::*champ(Genre g) {
  return g == Genre::Durée     ? &tNote::bytDurée
         : g == Genre::Attaque ? &tNote::bytAttaque
         : g == Genre::Nuance  ? &tNote::bytVolume
                               : &tNote::bytEffet;
}
int valeur(const CVantoroTablature& d, Genre g) {
  const tNote* n = d.getNote(1, 1, 2, d.searchNote(1, 1, 2, 0));
  return n == nullptr ? -1 : n->*champ(g);
}
void donne(CVantoroTablature& d, Genre g, int v) {
  const auto set = g == Genre::Durée     ? &CVantoroTablature::setNoteDurée
                   : g == Genre::Attaque ? &CVantoroTablature::setNoteAttaque
                   : g == Genre::Nuance  ? &CVantoroTablature::setNoteVolume
                                         : &CVantoroTablature::setNoteEffet;
  (d.*set)(1, 1, 2, d.searchNote(1, 1, 2, 0), static_cast<byt>(v));
}

TEST_F(Barres, EveryButtonWritesItsCodeAndShowsTheStateOfTheNoteUnderTheCursor) {
  ouvre();
  vt->fenetres().enregistrer(
      fen::FOptions, [this](VT& v) { return new OptionsEssai(v, journal); },
      RegistreFenetres::Genre::Dialogue);
  ftab->lecture().joueur = std::make_unique<JoueurMuet>();
  ftab->setOuvreDialogue(
      [](DialogueTab) { return false; },
      {DialogueTab::Proprietes, DialogueTab::ProprietesPiste, DialogueTab::Transpose,
       DialogueTab::Signature, DialogueTab::Tonalite, DialogueTab::BarresMesure, DialogueTab::Tempo,
       DialogueTab::Texte, DialogueTab::Accord});
  ftab->question = [](const QString&, QMessageBox::StandardButtons) { return QMessageBox::No; };
  ftab->choisitFichier = [](bool, const QString&, const QString&, const QString&) {
    return QString();
  };
  ftab->dialogueImpression = [](QPrinter&, int) { return false; };
  ftab->ouvreApercu = [] {};
  ftab->ouvreMiseEnPage = [] { return false; };

  // The table covers every button there is.
  std::map<QString, const Bouton*> parClé;
  for (const Bouton& b : kBoutons)
    parClé[QString::fromUtf8(b.barre) + "/" + QString::fromUtf8(b.clé)] = &b;
  for (const char* nom :
       {"tbToolbar", "tbGeneral", "tbEffet", "tbRythme", "tbAttaque", "tbVolume", "tbPistes"})
    for (QAction* a : ftab->barre(nom)->actions()) {
      if (a->isSeparator()) continue;
      const QString clé = QString::fromUtf8(nom) + "/" + a->objectName().section('_', 1);
      EXPECT_TRUE(parClé.count(clé)) << clé.toStdString() << " has no row";
    }

  for (const Bouton& b : kBoutons) {
    SCOPED_TRACE(std::string(b.barre) + " " + b.clé);
    // A quarter, fret 5, on string 2 under the cursor, in a new document.
    ftab->DebugInitialisation();
    noteSousLeCurseur(doc(), *ftab);
    QAction* bouton = ftab->bouton(b.barre, QString::fromUtf8(b.clé));
    ASSERT_NE(bouton, nullptr);
    switch (b.genre) {
      case Genre::Entrée: {
        QAction* e = ftab->entrée(b.entrée);
        ASSERT_NE(e, nullptr);
        EXPECT_EQ(bouton->isEnabled(), e->isEnabled()) << "available as its entry";
        if (!e->isEnabled()) break;
        QSignalSpy lancée(e, &QAction::triggered);
        bouton->trigger();
        EXPECT_EQ(lancée.count(), 1);
        if (b.code == 1) {
          EXPECT_TRUE(bouton->isChecked());
        }
        break;
      }
      case Genre::Durée:
      case Genre::Attaque:
      case Genre::Nuance:
      case Genre::Effet: {
        // Shown: the note under the cursor has the code; its button is down,
        // the only one of an exclusive group.
        donne(doc(), b.genre, b.code);
        ftab->tbUpdate();
        EXPECT_TRUE(bouton->isChecked());
        if (b.genre != Genre::Durée)
          for (QAction* a : ftab->barre(b.barre)->actions())
            if (a != bouton) {
              EXPECT_FALSE(a->isChecked()) << a->objectName().toStdString();
            }
        // Written: from another value, the click gives the note the code.
        const int autre = b.genre == Genre::Durée     ? (b.code == 48 ? 24 : 48)
                          : b.genre == Genre::Nuance  ? (b.code == 127 ? 15 : 127)
                          : b.genre == Genre::Attaque ? (b.code == 0 ? 3 : 0)
                                                      : 0;
        donne(doc(), b.genre, autre);
        ftab->tbUpdate();
        bouton->trigger();
        EXPECT_EQ(valeur(doc(), b.genre), b.code);
        EXPECT_TRUE(bouton->isChecked());
        EXPECT_TRUE(doc().modifi);
        // The click is one step of undo.
        ftab->bouton("tbToolbar", "undo")->trigger();
        EXPECT_EQ(valeur(doc(), b.genre), autre);
        ftab->bouton("tbToolbar", "redo")->trigger();
        // And a note typed next takes the length, attack or nuance.
        if (b.genre != Genre::Effet) {
          curseur(1, 0, 4);
          tape("7");
          const tNote* n = note(1, 4, 0);
          ASSERT_NE(n, nullptr);
          const int pris = b.genre == Genre::Durée     ? n->bytDurée
                           : b.genre == Genre::Attaque ? n->bytAttaque
                                                       : n->bytVolume;
          EXPECT_EQ(pris, b.code);
        }
        break;
      }
      case Genre::Jeu: {
        if (QString(b.clé) == "jouemarker") doc().setMarqueurStop(1, 96);
        const auto état = [&] {
          return QString(b.clé) == "record" ? ftab->enregistre() : ftab->isPlaying();
        };
        bouton->trigger();
        EXPECT_TRUE(état());
        EXPECT_TRUE(bouton->isChecked());
        EXPECT_EQ(ftab->lecture().marker, QString(b.clé) == "jouemarker");
        bouton->trigger();
        EXPECT_FALSE(état());
        EXPECT_FALSE(bouton->isChecked());
        break;
      }
      case Genre::Options:
        EXPECT_EQ(bouton->isEnabled(), ftab->entrée(b.entrée)->isEnabled());
        journal.clear();
        bouton->trigger();
        EXPECT_TRUE(contient(journal, "FOptions KeyTab"));
        break;
      case Genre::Piste:
        EXPECT_TRUE(bouton->isChecked()) << "the current track's button is down";
        ftab->mnutabPistes(1);
        ASSERT_EQ(doc().CurseurPiste(), 2);
        bouton = ftab->bouton(b.barre, QString::fromUtf8(b.clé));  // rebuilt with the tracks
        ASSERT_NE(bouton, nullptr);
        EXPECT_FALSE(bouton->isChecked());
        bouton->trigger();
        EXPECT_EQ(doc().CurseurPiste(), 1);
        EXPECT_TRUE(bouton->isChecked());
        break;
    }
  }
  // One length at a time.
  ftab->DebugInitialisation();
  noteSousLeCurseur(doc(), *ftab);
  ftab->bouton("tbRythme", "blanche")->trigger();
  EXPECT_FALSE(ftab->bouton("tbRythme", "noire")->isChecked());
}

TEST_F(Barres, TheObjectsButtonsShowWhatStandsAtTheCursor) {
  ouvre();
  QAction* tempo = ftab->bouton("tbGeneral", "tempo");
  EXPECT_FALSE(tempo->isChecked());
  doc().addMesure();
  ASSERT_TRUE(doc().setMesureTempo(2, 0, 90));
  curseur(2, 0, 1);
  ftab->tbUpdate();
  EXPECT_TRUE(tempo->isChecked());
  touche(Qt::Key_Left);
  EXPECT_FALSE(tempo->isChecked());
}

TEST_F(Barres, AFloatingToolbarSharesItsButtonsAndDocksWhenClosed) {
  ouvre();
  FTabToolBar* f = ftab->détacheBarre("tbRythme");
  ASSERT_NE(f, nullptr);
  EXPECT_EQ(ftab->Find_tabFloatingToolBars("tbRythme"), f);
  EXPECT_TRUE(ftab->barre("tbRythme")->isHidden());
  EXPECT_EQ(f->barre()->actions(), ftab->barre("tbRythme")->actions());
  // The cursor's note moves the floating buttons as it moved the docked ones.
  doc().setNoteWhole(1, 1, 1, 24, 7, 12);
  touche(Qt::Key_Right);
  ASSERT_EQ(doc().CurseurX(), 24);
  EXPECT_TRUE(ftab->bouton("tbRythme", "double")->isChecked());
  EXPECT_TRUE(f->barre()->actions()[4]->isChecked());

  // Hidden from the View menu, the floating window hides; closed, it docks.
  ftab->mnuTabDisplayToolbar(2);
  EXPECT_FALSE(f->isVisible());
  EXPECT_FALSE(ftab->entrée("mnuTabDisplayToolbar_2")->isChecked());
  ftab->mnuTabDisplayToolbar(2);
  f->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(ftab->Find_tabFloatingToolBars("tbRythme"), nullptr);
  EXPECT_FALSE(ftab->barre("tbRythme")->isHidden());

  // The track buttons, rebuilt with the tracks, reach the floating track bar.
  FTabToolBar* pistes = ftab->détacheBarre("tbPistes");
  ftab->mnutabPistes(1);
  EXPECT_EQ(pistes->barre()->actions(), ftab->barre("tbPistes")->actions());
  EXPECT_EQ(pistes->barre()->actions().size(), 6);
}

TEST_F(Barres, TheOptionsOpenOnTheEditorsPageFromTheButtonAndOnTheLastOneFromTheMenu) {
  ouvre();
  struct Options : QDialog, FenetreOptions {
    explicit Options(Journal& j) : m_j(j) {}
    void Form_Load() override { m_j.push_back("load"); }
    void selectTab(const QString& clé) override { m_j.push_back("tab " + clé); }
    Journal& m_j;
  };
  vt->fenetres().enregistrer(
      fen::FOptions, [this](VT&) { return new Options(journal); },
      RegistreFenetres::Genre::Dialogue);
  journal.clear();
  ftab->bouton("tbToolbar", "options")->trigger();
  EXPECT_EQ(journal, (Journal{"load", "tab KeyTab"}));
  journal.clear();
  ftab->entrée("mnuTabFile_16")->trigger();
  EXPECT_EQ(journal, (Journal{"load"}));
  EXPECT_EQ(modales, (std::vector<QString>{fen::FOptions, fen::FOptions}));
}

}  // namespace
}  // namespace vt::essai
