// The main window as the benchmarks drive it: offscreen, English, a silent
// output, settings in a folder of their own, the window 1700 x 1000 pixels.
// The windows a benchmark needs are registered before the start.
#pragma once

#include <QSettings>
#include <QTemporaryDir>
#include <cstdlib>
#include <functional>
#include <memory>

#include "shell/vt.h"

namespace vt::banc {

class SonMuet : public SonLive {
 public:
  void midiOpenOut() override {}
  void midiOpenIn() override {}
  void midiCloseOut() override {}
  void midiCloseIn() override {}
  void midiNoteOnGlobal(int) override {}
  void midiNoteOffGlobal(int) override {}
  void midiController(int, int, int) override {}
};

struct ProgrammeBanc {
  QTemporaryDir dossier;
  std::unique_ptr<VT> vt;

  explicit ProgrammeBanc(const std::function<void(VT&)>& enregistre) {
    const QString réglages = dossier.filePath("settings.ini");
    {
      QSettings s(réglages, QSettings::IniFormat);
      s.setValue("Options/setLang", "10000");
      s.setValue(QString::fromUtf8("Options/setDémarrage"), "0");
      s.setValue("Options/Show Tips at Startup", "0");
      s.setValue("Options/setLoadHelpAccessWndAtStartup", "False");
      s.setValue("Options/setMancheVisible", "True");
    }
    qputenv("VANTORO_SETTINGS", réglages.toUtf8());
    vt = std::make_unique<VT>();
    VT::Interactions i;
    i.getLang = [] { return static_cast<i16>(10000); };
    i.exec = [](QDialog&) {};
    i.critique = [](const QString&, const QString&) {};
    i.information = [](const QString&) {};
    i.avertissement = [](const QString&) {};
    vt->setInteractions(i);
    vt->setSon(std::make_unique<SonMuet>());
    enregistre(*vt);
    VT::Démarrage d;
    d.strAppPath = QStringLiteral(VT_BIN_DIR "/");
    d.dossierDonnéesUtilisateur = dossier.filePath("data");
    d.rafraîchirBureau = false;
    if (!vt->MDIForm_Load(d)) std::abort();
    vt->resize(1700, 1000);
  }
};

}  // namespace vt::banc
