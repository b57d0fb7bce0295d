// The main window and its sound: its notices at start, the MIDI input's notes,
// and the fretboard sounding through the built-in synthesizer.
#include <thread>

#include "banc.h"
#include "son_systeme.h"
#include "sound/midi_handles.h"
#include "sound/synthe_integre.h"

namespace vt::essai {
namespace {

// The recording stand-in, with something to say at start and an input whose
// notes the test plays.
class SonBavard : public SonEnregistreur {
 public:
  SonBavard(Journal& j, QList<AvisSon> messages)
      : SonEnregistreur(j), m_messages(std::move(messages)) {}
  QList<AvisSon> prendMessages() override {
    QList<AvisSon> m;
    m.swap(m_messages);
    return m;
  }
  void setReceveurNotes(ReceveurNotes r) override { receveur = std::move(r); }
  ReceveurNotes receveur;

 private:
  QList<AvisSon> m_messages;
};

class Son : public BancSilencieux {
 protected:
  SonBavard& bavard(QList<AvisSon> messages = {}) {
    crée();
    auto s = std::make_unique<SonBavard>(sons, std::move(messages));
    SonBavard& r = *s;
    vt->setSon(std::move(s));
    notesAvertissements();
    return r;
  }
};

// What the sound has to say comes after the start page and the tip, so that
// nothing modal covers it; what it says about the machine is said once for
// good, a port that cannot be opened at every start.
TEST_F(Son, TheSoundsNoticesComeLastAndThoseAboutTheMachineOnce) {
  const QList<AvisSon> avis = {{son::kAucuneSoundFont.id, "No SoundFont"},
                               {son::kAucuneSortieAudio.id, "No audio"},
                               {son::kSortieMidiImpossible.id, "No port"}};
  règle("Options/setD\u00e9marrage", "1");
  règle("Options/Show Tips at Startup", "1");
  bavard(avis);
  ASSERT_TRUE(démarre());
  EXPECT_EQ(avertissements, QStringList{"No SoundFont\n\nNo audio\n\nNo port"});
  dansLOrdre(étapes, "FD\u00e9but|FTip|avertissement");
  vt->close();

  // The next start on this machine.
  vt.reset();
  avertissements.clear();
  bavard(avis);
  ASSERT_TRUE(démarre());
  EXPECT_EQ(avertissements, QStringList{"No port"});
}

// Without the editor input notes sound and the harmonizer hears them; the
// editor, once loaded, takes them and sounds them itself, and the harmonizer
// still hears them.
TEST_F(Son, InputNotesGoToTheEditorWhenItIsLoaded) {
  SonBavard& s = bavard();
  enregistre({fen::FTab, fen::FHarmony});
  ASSERT_TRUE(démarre());
  ASSERT_TRUE(s.receveur);
  EXPECT_TRUE(avertissements.isEmpty()) << "nothing to say shows nothing";
  EXPECT_FALSE(contient(étapes, "avertissement"));
  QSignalSpy reçues(vt.get(), &VT::noteMidiRecue);
  vt->montreFenetre(fen::FHarmony);
  journal.clear();
  sons.clear();
  s.receveur(1, 64, true);
  s.receveur(1, 64, false);
  EXPECT_EQ(sons, (Journal{"on 64", "off 64"}));
  EXPECT_EQ(journal, (Journal{"FHarmony receiveNote 64"}));
  vt->montreFenetre(fen::FTab);
  journal.clear();
  sons.clear();
  s.receveur(3, 55, true);
  s.receveur(3, 55, false);
  EXPECT_EQ(journal, (Journal{"FTab on 55", "FHarmony receiveNote 55", "FTab off 55"}));
  EXPECT_TRUE(sons.empty());
  ASSERT_EQ(reçues.size(), 4);
  EXPECT_EQ(reçues[2], (QList<QVariant>{3, 55, true}));
  EXPECT_EQ(reçues[3], (QList<QVariant>{3, 55, false}));
}

// An input whose messages the test sends from its own thread.
class EntréeEssai : public MidiIn {
 public:
  void démarre(Rappel r) override { m_rappel = std::move(r); }
  void arrête() override { m_rappel = nullptr; }
  std::string nom() const override { return "test"; }
  void envoie(std::uint32_t m) {
    if (m_rappel) m_rappel(m);
  }

 private:
  Rappel m_rappel;
};

// The session's ports with the logging output and that input: the path from
// the settings to the bytes, and from the input's thread to the window.
class SonJournal : public Son {
 protected:
  void prépare() {
    crée();
    vt->setSon(sonSysteme(
        vt->settings(),
        [this](int device, const std::string& soundFont) {
          ouvertures.push_back({device, soundFont});
          journalMidi = std::make_shared<SortieJournal>();
          return OuvertureSortie{journalMidi, messages};
        },
        [this](int) {
          auto e = std::make_unique<EntréeEssai>();
          entrée = e.get();
          return OuvertureEntrée{std::move(e), {}};
        }));
    notesAvertissements();
  }

  std::vector<std::pair<int, std::string>> ouvertures;
  std::vector<MessageSon> messages;
  std::shared_ptr<SortieJournal> journalMidi;
  EntréeEssai* entrée = nullptr;
};

TEST_F(SonJournal, TheSettingsOfTheMomentReachTheBytesAndInputNotesAreQueuedToTheWindow) {
  for (const auto& [clé, valeur] : {std::pair{"setMIDIdevice", "2"},
                                    {"setMIDIchannel", "4"},
                                    {"setMIDIinstru", "30"},
                                    {"setMIDIvolume", "77"},
                                    {"setSoundFont", "/home/me/piano.sf2"}})
    règle(QStringLiteral("Options/") + clé, valeur);
  messages = {{son::kAucuneSortieAudio.id, "pulseaudio: connection refused"}};
  prépare();
  ASSERT_TRUE(démarre());
  // What the output says, in the window's language with its detail.
  EXPECT_EQ(avertissements, QStringList{vt->loadString(3104) + "\npulseaudio: connection refused"});
  vt->resize(1000, 700);
  QCoreApplication::processEvents();
  EXPECT_EQ(ouvertures, (std::vector<std::pair<int, std::string>>{{2, "/home/me/piano.sf2"}}));
  EXPECT_EQ(journalMidi->resets(), 1);
  EXPECT_EQ(midiHandleSortie(vt->son().midiOutHandle()), journalMidi);
  EXPECT_EQ(vt->panneau("midi")->toolTip(), vt->loadString(4000 + 30));

  clic(droitier(3, 1));               // G4 on the fourth channel at volume 77, then all notes off
  vt->settings().setMIDIchannel = 5;  // as the options dialog would
  clic(droitier(5, 6));               // A2
  EXPECT_EQ(octets(*journalMidi), (std::vector<std::string>{"C3 1E", "93 43 4D", "B3 7B 00",
                                                            "94 43 00", "94 2D 4D", "B4 7B 00"}));

  // Input notes cross from the input's thread to the window's as queued calls.
  ASSERT_NE(entrée, nullptr);
  QSignalSpy reçues(vt.get(), &VT::noteMidiRecue);
  journalMidi->efface();
  std::thread fil([this] {
    entrée->envoie(midiPack(0x92, 52, 100));  // the third string with basic channel 1
    entrée->envoie(midiPack(0x82, 52, 0));
  });
  fil.join();
  EXPECT_EQ(reçues.size(), 0) << "nothing runs on the input's thread but the queueing";
  QCoreApplication::processEvents();
  EXPECT_EQ(reçues, (QList<QList<QVariant>>{{3, 52, true}, {3, 52, false}}));
  // No editor: the note sounds on the settings' channel at their volume.
  EXPECT_EQ(octets(*journalMidi), (std::vector<std::string>{"94 34 4D", "94 34 00"}));
}

// The system's own ports, as the program opens them: the output is the
// built-in synthesizer, and a press on the fretboard starts a voice in it.
TEST_F(Son, AClickOnTheFretboardSoundsThroughTheBuiltInSynthesizer) {
  crée();
  vt->setSon(sonSysteme(vt->settings()));
  ASSERT_TRUE(démarre());
  vt->resize(1000, 700);
  QCoreApplication::processEvents();

  const std::int32_t handle = vt->son().midiOutHandle();
  ASSERT_NE(handle, 0);
  const auto sortie = midiHandleSortie(handle);
  auto* synthé = dynamic_cast<SynthéIntégré*>(sortie.get());
  ASSERT_NE(synthé, nullptr) << "output 0 is the built-in synthesizer";
  ASSERT_FALSE(synthé->soundFont().empty()) << "scripts/setup installs a General MIDI SoundFont";
  EXPECT_EQ(synthé->voixActives(), 0);

  // The high E string, third fret: G4.
  souris(QEvent::MouseButtonPress, droitier(3, 1), Qt::LeftButton, Qt::LeftButton);
  EXPECT_GT(synthé->voixActives(), 0);
  if (synthé->piloteAudio().empty()) {
    // No audio device here: listen to it by hand.
    std::vector<std::int16_t> pcm(2 * 4410);
    ASSERT_TRUE(synthé->rends(pcm.data(), 4410));
    int crête = 0;
    for (std::int16_t v : pcm)
      crête = std::max(crête, std::abs(int(v)));
    EXPECT_GT(crête, 300);
  }
  vt->close();
  EXPECT_EQ(vt->son().midiOutHandle(), 0);
  EXPECT_EQ(midiHandleSortie(handle), nullptr);
}

}  // namespace
}  // namespace vt::essai
