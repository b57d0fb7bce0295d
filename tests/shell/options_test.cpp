// The options dialog: every control on OK and Cancel, the pages, the MIDI
// ports, the skin, the language, and values edited by hand.
#include <QAbstractButton>
#include <QAbstractSlider>
#include <QComboBox>
#include <QListWidget>
#include <QSpinBox>
#include <QTabWidget>

#include "banc.h"
#include "faide_navigateur.h"
#include "options_pages.h"
#include "shell/foptions.h"
#include "shell/skin.h"
#include "son_systeme.h"
#include "sound/message_son.h"
#include "sound/midi_handles.h"

namespace vt::essai {
namespace {

using Réglages = QMap<QString, QString>;

// The devices of a made-up system.
class SonPorts : public SonEnregistreur {
 public:
  explicit SonPorts(Journal& j) : SonEnregistreur(j), m_j(j) {}
  QStringList sortiesMidi() const override { return {"Built-in", "Port A", "Port B"}; }
  QStringList entreesMidi() const override { return entrées; }
  void midiProgramGlobal(int patch) override {
    m_j.push_back(QStringLiteral("program %1").arg(patch));
  }
  QStringList entrées{"In A", "In B"};

 private:
  Journal& m_j;
};

class Options : public BancSilencieux {
 protected:
  void SetUp() override {
    BancSilencieux::SetUp();
    // A program folder of our own, with a second skin that has only the wood
    // of the fretboard.
    ASSERT_TRUE(app.isValid());
    copieProgramme(app);
    const QString source = QCoreApplication::applicationDirPath() + "/";
    for (const char* page : {"help/en/options.html", "help/fr/options.html"})
      ASSERT_TRUE(QFile::copy(source + page, app.filePath(page)));
    QDir().mkpath(app.filePath("skins/nuit"));
    ASSERT_TRUE(QFile::link(source + "skins/default", app.filePath("skins/default")));
    QImage bois(161, 300, QImage::Format_RGB32);
    bois.fill(QColor(10, 20, 200));
    ASSERT_TRUE(bois.save(app.filePath("skins/nuit/manchefond.bmp")));
  }

  // The main window with the dialog registered, on the made-up devices unless
  // the test brings its own.
  void lance(std::unique_ptr<SonLive> son = nullptr) {
    if (!vt) crée();
    vt->setSon(son ? std::move(son) : std::make_unique<SonPorts>(sons));
    notesAvertissements();
    vt->fenetres().enregistrer(
        fen::FOptions, [](VT& v) { return new FOptions(v); }, RegistreFenetres::Genre::Dialogue);
    VT::Démarrage d;
    d.strAppPath = app.path();
    ASSERT_TRUE(démarre(d));
    sons.clear();
  }

  // The session's ports on logging outputs and no input; every opening is
  // written in the journal too.
  void lanceSurJournal() {
    crée();
    lance(sonSysteme(
        vt->settings(),
        [this](int device, const std::string&) {
          journal.push_back(QStringLiteral("open %1").arg(device));
          sorties.push_back(std::make_shared<SortieJournal>());
          std::vector<MessageSon> m;
          if (device == -1) m.push_back({son::kSortieMidiImpossible.id, "busy"});
          return OuvertureSortie{sorties.back(), m};
        },
        [](int) { return OuvertureEntrée{}; }));
  }

  // Shows the dialog on `clé` and runs `action` while it waits.
  void ouvre(const QString& clé, const std::function<void(FOptions&)>& action) {
    pendantModale = [&action](QDialog& d) { action(dynamic_cast<FOptions&>(d)); };
    vt->montreOptions(clé);
    pendantModale = nullptr;
  }
  void ok(const QString& clé, const std::function<void(FOptions&)>& action) {
    ouvre(clé, [&action](FOptions& o) {
      action(o);
      o.btnOK()->click();
    });
  }
  FOptions& dialogue() { return *dynamic_cast<FOptions*>(vt->fenetres().fenetre(fen::FOptions)); }

  // Every setting as the store would write it.
  Réglages écrits() {
    const QString fichier = dir.filePath("instant.ini");
    QFile::remove(fichier);
    {
      QSettings s(fichier, QSettings::IniFormat);
      vt->settings().save_ini(s, kEtatMinimise, vt->strAppPath());
    }
    QSettings s(fichier, QSettings::IniFormat);
    Réglages r;
    for (const QString& k : s.allKeys())
      r[k] = s.value(k).toString();
    return r;
  }
  static Réglages changés(const Réglages& avant, const Réglages& après) {
    Réglages d;
    for (auto it = après.begin(); it != après.end(); ++it)
      if (avant.value(it.key()) != it.value()) d[it.key()] = it.value();
    return d;
  }

  QTemporaryDir app;
  std::vector<std::shared_ptr<SortieJournal>> sorties;
};

// One change on a page and the settings it writes on OK: a control named on
// the page given a value, or a change of its own.
struct Cas {
  QString page, contrôle;
  int valeur;
  Réglages attendu;
  std::function<void(FOptions&)> change = {};
};

void applique(FOptions& o, const Cas& c) {
  if (c.change) return c.change(o);
  QWidget* w = o.findChild<QWidget*>(c.contrôle);
  ASSERT_NE(w, nullptr) << c.contrôle.toStdString();
  if (auto* b = qobject_cast<QAbstractButton*>(w)) b->setChecked(c.valeur != 0);
  if (auto* l = qobject_cast<QComboBox*>(w)) l->setCurrentIndex(c.valeur);
  if (auto* s = qobject_cast<QAbstractSlider*>(w)) s->setValue(c.valeur);
  if (auto* n = qobject_cast<QSpinBox*>(w)) n->setValue(c.valeur);
}

std::vector<Cas> casDesRègles() {
  std::vector<Cas> c = {
      {"KeyDiv", "optManche2", 1, {{"Options/setManche", "2"}}},
      // Option 0 is the right hand: the other one makes a left-handed board.
      {"KeyDiv", "optMancheHand1", 1, {{"Options/setLeftHanded", "True"}}},
      {"KeyDiv", "chkDémarrage", 1, {{"Options/setDémarrage", "1"}}},
      {"KeyDiv", "chkBarreEtat", 0, {{"Options/setStatusBar", "0"}}},
      {"KeyDiv", "chkBarreOutils", 0, {{"Options/setToolBar", "0"}}},
      {"KeyDiv", "chkTipOfDay", 1, {{"Options/Show Tips at Startup", "1"}}},
      {"KeyDiv", "chkStarWith3", 1, {{"Options/setStartWith3", "True"}}},
      {"KeyDiv",
       "",
       0,
       {{"Options/strSkinPath", "nuit"}},
       [](FOptions& o) { o.pageDiv().choisitSkin("nuit"); }},
      {"KeyTab",
       "",
       0,
       {{"Tab/cfgEventColor", QString::number(1 + 2 * 256 + 3 * 65536)}},
       [](FOptions& o) {
         o.choisitCouleur = [](const QColor&) { return QColor(1, 2, 3); };
         o.pageTab().btnTab[1]->click();
       }},
      {"KeyTab",
       "",
       0,
       {{"Tab/cfgFontName", "Serif"}, {"Tab/cfgFontSize", "12"}, {"Tab/cfgFontBold", "False"}},
       [](FOptions& o) {
         o.choisitPolice = [](const QFont&) { return QFont("Serif", 12); };
         o.pageTab().cmdFont->click();
       }},
      {"KeyTab", "chkTabTransparent", 1, {{"Tab/cfgFontTransparent", "True"}}},
      {"KeyTab", "chkTabFolder", 0, {{"Options/setTabRememberFolder", "False"}}},
      // No setting of its own: the pair of offsets.
      {"KeyTab",
       "chkTabStaffOnTab",
       1,
       {{"Tab/TAB_VIEW_MARGIN_TOP_PORTEE", "0"}, {"Tab/TAB_VIEW_MARGIN_TOP_TAB", "150"}}},
      {"KeyTab", "sldTabExp", 80, {{"Tab/cfgASCIILargeur", "80"}}},
      {"KeyTab", "sldTabMARGIN_LEFT", 50, {{"Tab/TAB_VIEW_MARGIN_LEFT", "50"}}},
      {"KeyTab", "sldTabMARGIN_TOP", 100, {{"Tab/TAB_VIEW_MARGIN_TOP", "100"}}},
      {"KeyTab", "sldTabINTER_STRINGS", 15, {{"Tab/TAB_VIEW_INTER_STRINGS", "15"}}},
      {"KeyTab", "sldTabINTER_NOTE", 25, {{"Tab/TAB_VIEW_INTER_NOTE", "25"}}},
      {"KeyTab", "sldTabINTER_MESURE", 30, {{"Tab/TAB_VIEW_INTER_MESURE", "30"}}},
      {"KeyGam", "optGamConst3", 1, {{"Gammes/setGAMConst", "3"}}},
      {"KeyGam", "optGamPiano0", 1, {{"Gammes/setGAMPiano", "0"}}},
      {"KeyGam", "optGamMode1", 1, {{"Gammes/setGAMMode", "1"}}},
      {"KeyGam", "sldGamTime", 120, {{"Gammes/setGAMTimer", "120"}}},
      // Names on the dots is option 1; dots only writes 0.
      {"accords", "optAccordConst0", 1, {{"Accords/setAccordConst", "0"}}},
      {"KeyMét", "optMétro1", 1, {{"Options/setMétro", "0"}}},
      {"KeyMét", "chkMétronomeMIDICanal10", 1, {{"Options/setMétronomeMIDICanal10", "1"}}},
      {"KeyMét", "udMétronomeMIDINote1", 40, {{"Options/setMétronomeMIDINote1", "40"}}},
      {"KeyMét", "udMétronomeMIDINote2", 41, {{"Options/setMétronomeMIDINote2", "41"}}},
      // Entry 0 is the system's default (-1), entry 1 the built-in synthesizer (0).
      {"KeyMidi", "cmbMIDIdevice", 2, {{"Options/setMIDIdevice", "1"}}},
      {"KeyMidi", "cmbMIDIchannel", 3, {{"Options/setMIDIchannel", "4"}}},
      {"KeyMidi", "cmbMIDIinstru", 30, {{"Options/setMIDIinstru", "30"}}},
      {"KeyMidi", "sldMIDIvolume", 90, {{"Options/setMIDIvolume", "90"}}},
      {"KeyMidi", "udPitchBendRange", 2, {{"Options/setMIDIPitchBendRange", "2"}}},
      {"KeyMidi", "chkMIDIEffets1Ton", 1, {{"Options/setMIDIEffet1Ton", "True"}}},
      // Positions 0, 1, 2 stand for 8, 16, 32 steps.
      {"KeyMidi", "sldMIDIEffets", 0, {{"Options/setMIDIPitchDemiTon", "8"}}},
      {"KeyMidiIn", "cmbMIDIINDevice", 1, {{"Options/setMIDIInDevice", "1"}}},
      {"KeyMidiIn", "cmbMIDIINBasicChannel", 5, {{"Options/setMIDIINBasicChannel", "6"}}},
  };
  const char* paramètres[] = {"ADJ_SCORE",  "MAXSPAN",    "OPENS_SCORE", "POSITION_SCORE",
                              "ROOT_SCORE", "SPAN_SCORE", "TSPAN_SCORE"};
  const int valeurs[] = {8, 6, 11, 3, 40, 13, 5};
  for (int i = 0; i < 7; ++i)
    c.push_back({"accords",
                 QStringLiteral("sldAccordCalcul%1").arg(i),
                 valeurs[i],
                 {{QStringLiteral("Accords/AccordParametres.") + paramètres[i],
                   QString::number(valeurs[i])}}});
  return c;
}

TEST_F(Options, OkWritesEachControlToItsSettingAndNothingElse) {
  lance();
  for (const Cas& c : casDesRègles()) {
    SCOPED_TRACE(c.attendu.firstKey().toStdString());
    const Réglages avant = écrits();
    ok(c.page, [&c](FOptions& o) {
      EXPECT_EQ(o.onglet(), c.page);
      applique(o, c);
    });
    EXPECT_EQ(changés(avant, écrits()), c.attendu);
  }
  // The bars shown are the settings'.
  EXPECT_FALSE(vt->toolbar()->isVisibleTo(vt.get()));
  // The instrument reached the output and the status bar.
  EXPECT_TRUE(contient(sons, "program 30"));
  EXPECT_EQ(vt->panneau("midi")->toolTip(), vt->loadString(4030));
  // And the next start finds them.
  vt->close();
  QSettings s(réglages(), QSettings::IniFormat);
  EXPECT_EQ(s.value("Options/setManche").toString(), "2");
  EXPECT_EQ(s.value("Accords/AccordParametres.TSPAN_SCORE").toString(), "5");
}

TEST_F(Options, CancelLeavesEverySettingAndTheNextOpeningShowsThemAgain) {
  lance();
  const Réglages avant = écrits();
  ouvre("KeyDiv", [](FOptions& o) {
    o.show();
    // The toolbar follows its box at once, before OK.
    QCheckBox* barre = o.pageDiv().chkBarreOutils;
    QTest::mouseClick(barre, Qt::LeftButton, {}, QPoint(6, barre->height() / 2));
    for (const Cas& c : casDesRègles())
      applique(o, c);
    EXPECT_EQ(o.findChild<QLabel*>("labTabExp")->text(), "80");
    o.btnAnnuler()->click();
  });
  EXPECT_EQ(changés(avant, écrits()), Réglages{});
  EXPECT_TRUE(sons.empty()) << "no port closed or opened, no program sent";
  // The toolbar stays as the box left it until the next OK or start.
  EXPECT_FALSE(vt->toolbar()->isVisibleTo(vt.get()));
  ok({}, [](FOptions& o) {
    EXPECT_TRUE(o.pageDiv().chkBarreOutils->isChecked());
    EXPECT_EQ(o.findChild<QLabel*>("labTabExp")->text(), "66");
    EXPECT_EQ(o.pageDiv().skin(), "default");
  });
  EXPECT_TRUE(vt->toolbar()->isVisibleTo(vt.get()));
  EXPECT_EQ(changés(avant, écrits()), Réglages{});
  // The restore buttons bring back the defaults.
  ok("KeyTab", [](FOptions& o) {
    PageTab& t = o.pageTab();
    for (Curseur* c : {&t.sldTabExp, &t.sldTabMARGIN_LEFT, &t.sldTabMARGIN_TOP,
                       &t.sldTabINTER_STRINGS, &t.sldTabINTER_NOTE, &t.sldTabINTER_MESURE})
      c->sld->setValue(c->sld->maximum());
    t.chkTabStaffOnTab->setChecked(true);
    for (int i = 0; i < 3; ++i)
      t.setCouleur(i, QColor(9, 9, 9));
    t.btnTabRestore->click();
    for (Curseur& c : o.pageAccords().sldAccordCalcul)
      c.sld->setValue(c.sld->minimum());
    o.pageAccords().btnAccordRestore->click();
  });
  EXPECT_EQ(changés(avant, écrits()), Réglages{});
}

TEST_F(Options, EachCallerOpensItsPage) {
  lance();
  for (const QString& clé : FOptions::kClés) {
    SCOPED_TRACE(clé.toStdString());
    ouvre(clé, [&clé](FOptions& o) {
      EXPECT_EQ(o.TabStrip()->currentWidget()->objectName(), clé);
      o.btnAnnuler()->click();
    });
  }
  // The menu and the gear keep the page shown last; an unknown key as well.
  const auto page = [this] { return dialogue().onglet(); };
  vt->MenuGlobalFile(4);
  EXPECT_EQ(page(), "KeyMidiIn");
  vt->montreOptions("KeyUnknown");
  EXPECT_EQ(page(), "KeyMidiIn");
  QTest::mouseDClick(vt->panneau("midi"), Qt::LeftButton);
  EXPECT_EQ(page(), "KeyMidi");
  vt->boutonBarre("options")->trigger();
  EXPECT_EQ(page(), "KeyMidi");
  EXPECT_EQ(modales.size(), 11u);
  // The dialog stays loaded between uses, and goes when the main window closes.
  EXPECT_TRUE(vt->mnuFile(4)->isEnabled());
  vt->close();
  EXPECT_FALSE(vt->isFormLoaded(fen::FOptions));
}

TEST_F(Options, ANewSkinReachesTheOpenWindowsAfterTheirNewSearch) {
  crée();
  enregistre({fen::FAccords, fen::FGammes, fen::FTab, fen::FMetronome});
  lance();
  for (const QString& f : {fen::FMetronome, fen::FGammes, fen::FAccords, fen::FTab})
    vt->montreFenetre(f);
  journal.clear();
  ok("KeyDiv", [](FOptions& o) {
    ASSERT_EQ(o.pageDiv().lstSkin->count(), 2);
    o.pageDiv().choisitSkin("nuit");
  });
  dansLOrdre(journal,
             "FAccords optionsAppliquées|FGammes optionsAppliquées|FTab optionsAppliquées|"
             "FAccords load_skin|FGammes load_skin|FTab refresh|FAccords drawMancheContenu");
  // Those with pictures in their order; the editor only redraws.
  EXPECT_EQ(finissant(journal, "load_skin"),
            (Journal{"FAccords load_skin", "FGammes load_skin", "FMetronome load_skin"}));
  EXPECT_EQ(sons.back(), "program 27");
  // The wood comes from the new skin, what it lacks from the default one.
  EXPECT_EQ(vt->manche().aspect().fond.pixelColor(5, 5), QColor(10, 20, 200));
  EXPECT_TRUE(vt->skinFile(skin::kFond).contains("/skins/default/"));

  journal.clear();
  ok("KeyDiv", [](FOptions&) {});
  EXPECT_FALSE(contient(journal, "FAccords load_skin")) << "the same skin loads nothing";
  EXPECT_TRUE(contient(journal, "FAccords optionsAppliquées"));
}

TEST_F(Options, TheOutputIsOpenedAgainOnlyWhenItChangesAndAPlayingPieceStopsFirst) {
  lanceSurJournal();
  vt->fenetres().enregistrer(fen::FTab, [this](VT& v) { return new EditeurEssai(v, journal); });
  auto* éditeur = dynamic_cast<EditeurEssai*>(vt->montreFenetre(fen::FTab));
  ASSERT_EQ(sorties.size(), 1u);
  sorties[0]->efface();
  ok("KeyMidi", [](FOptions&) {});
  EXPECT_EQ(sorties.size(), 1u) << "the same output is not opened again";
  EXPECT_EQ(octets(*sorties[0]), (std::vector<std::string>{"C0 1B"}));

  éditeur->joue = true;
  journal.clear();
  ok("KeyMidi", [](FOptions& o) {
    o.pageMidi().cmbMIDIdevice->setCurrentIndex(0);
    o.pageMidi().cmbMIDIinstru->setCurrentIndex(30);
  });
  ASSERT_EQ(sorties.size(), 2u);
  EXPECT_EQ(journal, (Journal{"FTab stop", "open -1", "FTab optionsAppliquées", "FTab refresh"}));
  EXPECT_EQ(octets(*sorties[1]), (std::vector<std::string>{"C0 1E", "C0 1E"}));
  EXPECT_EQ(vt->settings().setMIDIdevice, -1);
}

TEST_F(Options, AnOutputThatFailsSaysSoOnceAndTheBuiltInSynthesizerPlays) {
  lanceSurJournal();
  const QString message = vt->loadString(son::kSortieMidiImpossible) + "\nbusy";
  for (int entrée : {0, 1, 0}) {
    ok("KeyMidi", [entrée](FOptions& o) { o.pageMidi().cmbMIDIdevice->setCurrentIndex(entrée); });
    EXPECT_NE(vt->son().midiOutHandle(), 0);
  }
  EXPECT_EQ(sorties.size(), 4u);
  EXPECT_EQ(avertissements, QStringList{message});
  // The tests of the page open another output only for another device.
  SonLive& son = vt->son();
  const auto ouverte = midiHandleSortie(son.midiOutHandle());
  EXPECT_EQ(std::make_pair(son.sortieEssai(0), son.sortieEssai(-1)),
            std::make_pair(ouverte, ouverte));
  journal.clear();
  EXPECT_NE(son.sortieEssai(2), ouverte);
  EXPECT_EQ(journal, Journal{"open 2"});
  EXPECT_EQ(midiHandleSortie(son.midiOutHandle()), ouverte) << "the session keeps its own";
}

TEST_F(Options, TheInputIsOpenedAgainOnlyWhenItChanges) {
  lance();
  ok("KeyMidiIn", [](FOptions&) {});
  EXPECT_FALSE(contient(sons, "openIn"));
  ok("KeyMidiIn", [](FOptions& o) { o.pageMidiIn().cmbMIDIINDevice->setCurrentIndex(1); });
  EXPECT_EQ(std::count(sons.begin(), sons.end(), "closeIn"), 1);
  EXPECT_EQ(std::count(sons.begin(), sons.end(), "openIn"), 1);

  // No input at all: the list says so and the setting waits for its device.
  auto& ports = dynamic_cast<SonPorts&>(vt->son());
  ports.entrées.clear();
  sons.clear();
  ok("KeyMidiIn", [this](FOptions& o) {
    EXPECT_FALSE(o.pageMidiIn().cmbMIDIINDevice->isEnabled());
    EXPECT_EQ(o.pageMidiIn().cmbMIDIINDevice->currentText(), vt->loadString(1178));
  });
  EXPECT_EQ(vt->settings().setMIDIInDevice, 1);
  EXPECT_FALSE(contient(sons, "openIn"));
}

TEST_F(Options, TheTestButtonsSoundThePageThroughTheOutputItShows) {
  lanceSurJournal();
  ouvre("KeyMidi", [this](FOptions& o) {
    o.show();
    o.selectTab("KeyMidi");
    PageMidi& p = o.pageMidi();
    p.cmbMIDIchannel->setCurrentIndex(3);
    p.cmbMIDIinstru->setCurrentIndex(30);
    p.sldMIDIvolume.sld->setValue(90);
    sorties[0]->efface();
    QTest::mousePress(p.btnMIDItest, Qt::LeftButton);
    QTest::mouseRelease(p.btnMIDItest, Qt::LeftButton);
    // The session's output gets the settings' program back.
    EXPECT_EQ(octets(*sorties[0]),
              (std::vector<std::string>{"C3 1E", "93 39 5A", "93 39 00", "C0 1B"}));

    // A whole tone up at 16 steps a semitone, within a range of two.
    sorties[0]->efface();
    p.chkMIDIEffets1Ton->setChecked(true);
    p.sldMIDIEffets.sld->setValue(1);
    p.btnMIDIEffet_MouseDown();
    int pas = 1;
    while (p.pasTiré())
      ++pas;
    EXPECT_EQ(pas, 10);
    p.btnMIDIEffet_MouseUp();
    const auto o8 = octets(*sorties[0]);
    ASSERT_EQ(o8.size(), 6u + 10u + 3u);
    EXPECT_EQ(std::vector<std::string>(o8.begin(), o8.begin() + 6),
              (std::vector<std::string>{"B3 65 00", "B3 64 00", "B3 06 02", "B3 26 00", "C3 1E",
                                        "93 39 5A"}));
    EXPECT_EQ(o8[15], "E3 00 60");
    EXPECT_EQ(std::vector<std::string>(o8.begin() + 16, o8.end()),
              (std::vector<std::string>{"93 39 00", "E3 00 40", "C0 1B"}));

    // The system's default is the built-in synthesizer too: no second one.
    sorties[0]->efface();
    p.cmbMIDIdevice->setCurrentIndex(0);
    p.btnMIDItest_MouseDown();
    p.btnMIDItest_MouseUp();
    EXPECT_EQ(sorties.size(), 1u);
    EXPECT_EQ(octets(*sorties[0]).size(), 4u);
    o.btnAnnuler()->click();
  });
  EXPECT_EQ(vt->settings().setMIDIdevice, 0);
  EXPECT_EQ(vt->settings().setMIDIchannel, 1);
}

TEST_F(Options, TheTextsFollowTheLanguage) {
  lance();
  ouvre("KeyDiv", [](FOptions& o) { o.btnAnnuler()->click(); });
  FOptions& o = dialogue();
  const auto onglets = [&o] {
    QStringList l;
    for (int i = 0; i < o.TabStrip()->count(); ++i)
      l << o.TabStrip()->tabText(i);
    return l;
  };
  EXPECT_EQ(onglets(), (QStringList{"General", "Tablature", "Scales", "Chords", "Metronome", "MIDI",
                                    "MIDI input"}));
  vt->mnuFileLang_Click(0);
  EXPECT_EQ(onglets(), (QStringList{"G\u00e9n\u00e9ral", "Tablature", "Gammes", "Accords",
                                    "M\u00e9tronome", "MIDI", "Entr\u00e9e MIDI"}));
  EXPECT_EQ(o.btnAnnuler()->text(), "Annuler");
  EXPECT_EQ(o.pageMidi().cmbMIDIinstru->itemText(27), vt->loadString(4027));
  EXPECT_EQ(o.pageMidi().cmbMIDIdevice->itemText(0), vt->loadString(1164));
  EXPECT_EQ(o.pageDiv().chkStarWith[0]->text(), "Accords");
  vt->mnuFileLang_Click(1);
  EXPECT_EQ(onglets().front(), "General");
  EXPECT_EQ(o.pageMidi().cmbMIDIdevice->itemText(1), "Built-in synthesizer");
}

TEST_F(Options, ValuesEditedByHandOpenAsTheNearestOnesAndOkKeepsThose) {
  const std::vector<std::tuple<QString, QString, QString>> cas = {
      {"Options/setManche", "7", "2"},
      {"Options/setMIDIchannel", "40", "16"},
      {"Options/setMIDIPitchDemiTon", "20", "16"},
      {"Options/setMIDIdevice", "99", "2"},
      {"Options/setMIDIInDevice", "-5", "0"},
      {"Options/setMIDIinstru", "200", "127"},
      {"Options/setM\u00e9tronomeMIDINote1", "250", "127"},
      {"Options/setMIDIPitchBendRange", "0", "1"},
      {"Options/strSkinPath", "gone", "default"},
      {"Gammes/setGAMMode", "0", "1"},
      {"Gammes/setGAMConst", "9", "3"},
      {"Gammes/setGAMTimer", "5000", "1000"},
      {"Accords/setAccordConst", "5", "1"},
      {"Accords/AccordParametres.MAXSPAN", "200", "12"},
      {"Tab/cfgASCIILargeur", "-3", "20"},
      {"Tab/cfgFontSize", "0", "1"},
      {"Tab/TAB_VIEW_INTER_STRINGS", "1000", "40"},
      {"Tab/cfgCurseurColor", "-1", "16777215"},
  };
  for (const auto& [clé, écrit, attendu] : cas)
    règle(clé, écrit);
  lance();
  ok("KeyDiv", [](FOptions&) {});
  const Réglages après = écrits();
  for (const auto& [clé, écrit, attendu] : cas)
    EXPECT_EQ(après.value(clé), attendu) << clé.toStdString() << " was " << écrit.toStdString();
}

TEST_F(Options, HelpOpensOnThePagesTopicOverTheWaitingDialog) {
  lance();
  ouvre("KeyMidi", [](FOptions& o) {
    o.btnAide()->click();
    auto* aide = o.findChild<FAideNavigateur*>();
    ASSERT_NE(aide, nullptr);
    EXPECT_TRUE(aide->isVisible());
    EXPECT_EQ(aide->navigateur()->source().fragment(), "midi");
    o.btnAnnuler()->click();
    EXPECT_FALSE(aide->isVisible());
  });
}

}  // namespace
}  // namespace vt::essai
