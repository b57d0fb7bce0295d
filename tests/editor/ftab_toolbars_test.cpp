// The editor's toolbars: each button as its menu entry, the state it shows, floating bars.
#include <QAction>
#include <QSignalSpy>
#include <QToolBar>
#include <map>
#include <tuple>

#include "editor/ftab_toolstate.h"
#include "ftab_banc.h"
#include "ftab_play.h"
#include "ftab_toolbar.h"

namespace vt::essai {
namespace {

using Barres = Editeur;

// Options that are a plain window, writing down the page they open on.
struct OptionsFenetre : FenetreEssai, FenetreOptions {
  OptionsFenetre(VT& v, Journal& j) : FenetreEssai(v, fen::FOptions, j) {}
  void selectTab(const QString& clé) override { m_j.push_back("tab " + clé); }
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
// the options, the first track.
enum class Genre { Entrée, Durée, Attaque, Nuance, Effet, Jeu, Options, Piste };
struct Bouton {
  const char* barre;
  const char* clé;
  Genre genre;
  const char* entrée;
  int code;
};
using Paire = std::pair<const char*, const char*>;
using Code = std::pair<const char*, int>;

// Every button of the seven toolbars, as the toolbars' table and the codes' tables give them.
const std::vector<Bouton> kBoutons = [] {
  std::vector<Bouton> v;
  const auto entrées = [&v](const char* barre, std::initializer_list<Paire> l, Genre g,
                            int code = 0) {
    for (const auto& [clé, entrée] : l)
      v.push_back({barre, clé, g, entrée, code});
  };
  const auto codes = [&v](const char* barre, Genre g, std::initializer_list<Code> l) {
    for (const auto& [clé, code] : l)
      v.push_back({barre, clé, g, nullptr, code});
  };
  entrées("tbToolbar",
          {Paire("nouveau", "mnuTabFile_0"), Paire("ouvrir", "mnuTabFile_1"),
           Paire("enregistrer", "mnuTabFile_2"), Paire("imprimer", "mnuTabFile_11"),
           Paire("preview", "mnuTabFile_12"), Paire("pagesetup", "mnuTabFile_14"),
           Paire("proprietes", "mnuTabEdit_13"), Paire("arriere", "mnuTabPlay_1"),
           Paire("avant", "mnuTabPlay_2"), Paire("couper", "mnuTabEdit_3"),
           Paire("copier", "mnuTabEdit_4"), Paire("coller", "mnuTabEdit_5"),
           Paire("undo", "mnuTabEdit_0"), Paire("redo", "mnuTabEdit_1"),
           Paire("redraw", "mnuTabDisplay_10")},
          Genre::Entrée);
  entrées("tbToolbar",
          {Paire("view_mode_1", "mnuTabDisplay_0"), Paire("view_mode_2", "mnuTabDisplay_1"),
           Paire("view_mode_3", "mnuTabDisplay_2"), Paire("view_mode_4", "mnuTabDisplay_3"),
           Paire("view_mode_triolet", "mnuTabDisplay_4")},
          Genre::Entrée, 1);
  entrées("tbToolbar",
          {Paire("joue", "mnuTabPlay_0"), Paire("jouemarker", "mnuTabPlay_3"),
           Paire("record", "mnuTabPlay_10")},
          Genre::Jeu);
  entrées("tbToolbar", {Paire("options", "mnuTabFile_16")}, Genre::Options);
  entrées("tbGeneral",
          {Paire("texte", "mnuTabTool_4"), Paire("accord", "mnuTabTool_5"),
           Paire("accordcreate", "mnuTabTool_6"), Paire("signature", "mnuTabEdit_16"),
           Paire("loop", "mnuTabEdit_18"), Paire("tempo", "mnuTabEdit_19")},
          Genre::Entrée);
  codes("tbEffet", Genre::Effet,
        {Code("hammer-on", 3), Code("pull-off", 4), Code("slide up", 1), Code("slide down", 2),
         Code("vibrato", 9), Code("bendup", 20), Code("bendupdn", 21), Code("bendreturn", 22),
         Code("benddn", 23), Code("tremolo", 24), Code("trill", 25), Code("liaison", 27)});
  // The dotted button makes a quarter dotted.
  codes("tbRythme", Genre::Durée,
        {Code("ronde", 192), Code("blanche", 96), Code("noire", 48), Code("croche", 24),
         Code("double", 12), Code("triple", 6), Code("pointée", 72), Code("triolet", 32)});
  codes("tbAttaque", Genre::Attaque,
        {Code("attaque none", 0), Code("attaque tap", 3), Code("attaque slap", 4),
         Code("attaque pop", 5), Code("attaque harm", 1), Code("attaque ah", 2),
         Code("attaque up", 7), Code("attaque dn", 8), Code("attaque dead note", 9),
         Code("attaque palmmute", 6), Code("attaque brush up", 10), Code("attaque brush dn", 11)});
  codes("tbVolume", Genre::Nuance,
        {Code("ppp", 15), Code("pp", 31), Code("p", 47), Code("mp", 63), Code("mf", 79),
         Code("f", 95), Code("ff", 111), Code("fff", 127)});
  entrées("tbPistes",
          {Paire("add", "mnutabPistes_1"), Paire("remove", "mnutabPistes_2"),
           Paire("properties", "mnutabPistes_3")},
          Genre::Entrée);
  codes("tbPistes", Genre::Piste, {Code("1", 1)});
  return v;
}();

// The field of a note that a button of this kind writes.
byt tNote::*champ(Genre g) {
  return g == Genre::Durée     ? &tNote::bytDurée
         : g == Genre::Attaque ? &tNote::bytAttaque
         : g == Genre::Nuance  ? &tNote::bytVolume
                               : &tNote::bytEffet;
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
      fen::FOptions, [this](VT& v) { return new OptionsFenetre(v, journal); },
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

  // A quarter, fret 5, on string 2 under the cursor, in a new document.
  const auto noteSousLeCurseur = [this] {
    ftab->DebugInitialisation();
    pose(1, 2, 0, 5, 48);
    curseur(1, 0, 2);
    ftab->tbUpdate();
  };
  for (const Bouton& b : kBoutons) {
    SCOPED_TRACE(std::string(b.barre) + " " + b.clé);
    noteSousLeCurseur();
    QAction* bouton = ftab->bouton(b.barre, QString::fromUtf8(b.clé));
    ASSERT_NE(bouton, nullptr);
    const QString clé = QString::fromUtf8(b.clé);
    if (b.entrée != nullptr) {
      QAction* e = ftab->entrée(b.entrée);
      ASSERT_NE(e, nullptr);
      EXPECT_EQ(bouton->isEnabled(), e->isEnabled()) << "available as its entry";
    }
    switch (b.genre) {
      case Genre::Entrée: {
        QAction* e = ftab->entrée(b.entrée);
        if (!e->isEnabled()) break;
        QSignalSpy lancée(e, &QAction::triggered);
        bouton->trigger();
        EXPECT_EQ(lancée.count(), 1);
        EXPECT_TRUE(b.code == 0 || bouton->isChecked());
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
        for (QAction* a : ftab->barre(b.barre)->actions())
          EXPECT_TRUE(a == bouton || !a->isChecked() || b.genre == Genre::Durée)
              << a->objectName().toStdString();
        // Written: from another value, the click gives the note the code, as
        // one step of undo.
        const int autre = b.genre == Genre::Durée     ? (b.code == 48 ? 24 : 48)
                          : b.genre == Genre::Nuance  ? (b.code == 127 ? 15 : 127)
                          : b.genre == Genre::Attaque ? (b.code == 0 ? 3 : 0)
                                                      : 0;
        donne(doc(), b.genre, autre);
        ftab->tbUpdate();
        bouton->trigger();
        EXPECT_EQ(note(1, 2, 0)->*champ(b.genre), b.code);
        EXPECT_TRUE(bouton->isChecked());
        EXPECT_TRUE(doc().modifi);
        ftab->bouton("tbToolbar", "undo")->trigger();
        EXPECT_EQ(note(1, 2, 0)->*champ(b.genre), autre);
        ftab->bouton("tbToolbar", "redo")->trigger();
        // And a note typed next takes the length, attack or nuance.
        if (b.genre != Genre::Effet) {
          curseur(1, 0, 4);
          tape("7");
          ASSERT_NE(note(1, 4, 0), nullptr);
          EXPECT_EQ(note(1, 4, 0)->*champ(b.genre), b.code);
        }
        break;
      }
      case Genre::Jeu: {
        if (clé == "jouemarker") doc().setMarqueurStop(1, 96);
        const auto état = [&] { return clé == "record" ? ftab->enregistre() : ftab->isPlaying(); };
        bouton->trigger();
        EXPECT_TRUE(état());
        EXPECT_TRUE(bouton->isChecked());
        EXPECT_EQ(ftab->lecture().marker, clé == "jouemarker");
        bouton->trigger();
        EXPECT_FALSE(état());
        EXPECT_FALSE(bouton->isChecked());
        break;
      }
      case Genre::Options:  // shown on the editor's page (a dialog: the test below)
        journal.clear();
        bouton->trigger();
        EXPECT_TRUE(contient(journal, "tab KeyTab"));
        break;
      case Genre::Piste:
        EXPECT_TRUE(bouton->isChecked()) << "the current track's button is down";
        ftab->mnutabPistes(1);
        ASSERT_EQ(doc().CurseurPiste(), 2);
        bouton = ftab->bouton(b.barre, clé);  // rebuilt with the tracks
        ASSERT_NE(bouton, nullptr);
        EXPECT_FALSE(bouton->isChecked());
        bouton->trigger();
        EXPECT_EQ(doc().CurseurPiste(), 1);
        EXPECT_TRUE(bouton->isChecked());
        break;
    }
  }
  // One length at a time.
  noteSousLeCurseur();
  ftab->bouton("tbRythme", "blanche")->trigger();
  EXPECT_FALSE(ftab->bouton("tbRythme", "noire")->isChecked());
}

TEST_F(Barres, AFloatingToolbarSharesItsButtonsAndDocksWhenClosedObjectsShowWhatIsThere) {
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

  // The objects' buttons show what stands at the cursor.
  QAction* tempo = ftab->bouton("tbGeneral", "tempo");
  EXPECT_FALSE(tempo->isChecked());
  mesures(2);
  ASSERT_TRUE(doc().setMesureTempo(2, 0, 90));
  curseur(2, 0, 1);
  ftab->tbUpdate();
  EXPECT_TRUE(tempo->isChecked());
  touche(Qt::Key_Left);
  EXPECT_FALSE(tempo->isChecked());
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
  EXPECT_EQ(ftab->bouton("tbToolbar", "options")->isEnabled(),
            ftab->entrée("mnuTabFile_16")->isEnabled());
  journal.clear();
  ftab->bouton("tbToolbar", "options")->trigger();
  EXPECT_EQ(journal, (Journal{"load", "tab KeyTab"}));
  journal.clear();
  ftab->entrée("mnuTabFile_16")->trigger();
  EXPECT_EQ(journal, (Journal{"load"}));
  EXPECT_EQ(modales, (std::vector<QString>{fen::FOptions, fen::FOptions}));
}

// The attack commands follow the Shift keys' order; the state follows a note
// where it can and gives its nuance code.
TEST(EtatOutils, TheAttackCommandsFollowTheShiftKeysAndTheStateANoteWhereItCan) {
  const byt attendu[] = {0, 3, 4, 5, 7, 8, 1, 2, 9, 6, 10, 11};
  for (int i = 0; i < kNbAttaques; ++i) {
    EXPECT_EQ(attaqueDuMenu(i), attendu[i]) << i;
    EXPECT_EQ(indexMenuAttaque(attendu[i]), i);
  }
  EXPECT_EQ(std::pair(indexMenuAttaque(12), attaqueDuMenu(12)), std::pair(-1, attaque::kStandard));
  EtatOutils e;
  EXPECT_EQ(e.getNoteVolume(), 127) << "fff until another is chosen";
  // (rythme, dotted, triplet, attack, nuance, effect) as the state holds them.
  const auto état = [&e] {
    return std::tuple(e.rythme, e.pointée, e.triolet, e.attaque, e.nuance, e.effet);
  };
  tNote n{0, 144, 0, effet::kVibrato, 0, attaque::kPalmMute, nuance::kP};
  e.suisNote(n);
  EXPECT_EQ(état(), std::tuple(1, true, false, attaque::kPalmMute, 3, effet::kVibrato));
  EXPECT_EQ(e.getNoteVolume(), nuance::kP) << "the level times sixteen, less one";

  n.bytDurée = 4;  // a triplet thirty-second
  e.suisNote(n);
  EXPECT_EQ(état(), std::tuple(5, false, true, attaque::kPalmMute, 3, effet::kVibrato));

  // A length no button gives (cut by the next note), a nuance between the
  // eight and an unknown attack leave the buttons as they were.
  n = tNote{0, 42, 0, 0, 0, 40, 100};
  e.suisNote(n);
  EXPECT_EQ(état(), std::tuple(5, false, true, attaque::kPalmMute, 3, effet::kAucun));
}

}  // namespace
}  // namespace vt::essai
