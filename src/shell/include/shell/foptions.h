// FOptions: the one modal dialog that edits the settings, on seven pages
// chosen by key. It works on its controls only: the settings change when OK
// is pressed, never on Cancel. It stays loaded and hidden between uses; each
// opening fills the controls again from the settings and the system's device
// lists. The program registers it as a dialog:
//
//   vt.fenetres().enregistrer(fen::FOptions, [](VT& v) { return new FOptions(v); },
//                             RegistreFenetres::Genre::Dialogue);
#pragma once

#include <QColor>
#include <QDialog>
#include <QFont>
#include <QPointer>
#include <array>
#include <functional>
#include <optional>

#include "shell/fenetres.h"

class QPushButton;
class QTabWidget;

namespace vt {

class VT;
class FAideNavigateur;
class PageDiv;
class PageTab;
class PageGam;
class PageAccords;
class PageMet;
class PageMidi;
class PageMidiIn;

class FOptions : public QDialog, public FenetreVT, public FenetreOptions {
 public:
  // The pages' keys, in the order of the tabs.
  static const std::array<QString, 7> kClés;

  explicit FOptions(VT& vt);
  ~FOptions() override;

  void load_lang() override;
  void Form_Load() override;
  // An unknown key leaves the page as it is.
  void selectTab(const QString& clé) override;
  // The key of the page shown.
  QString onglet() const;

  // OK: the controls to the settings in the order of the rules, then the
  // chord window's new search, the skin, the editor, the fretboard, the
  // program change and the status bar.
  void btnOK_Click();
  // Hides the dialog; nothing is applied.
  void btnAnnuler_Click();
  // The help on the topic of the page shown.
  void btnAide_Click();

  QTabWidget* TabStrip() const { return m_onglets; }
  QPushButton* btnOK() const { return m_ok; }
  QPushButton* btnAnnuler() const { return m_annuler; }
  QPushButton* btnAide() const { return m_aide; }
  PageDiv& pageDiv() const { return *m_div; }
  PageTab& pageTab() const { return *m_tab; }
  PageGam& pageGam() const { return *m_gam; }
  PageAccords& pageAccords() const { return *m_accords; }
  PageMet& pageMet() const { return *m_met; }
  PageMidi& pageMidi() const { return *m_midi; }
  PageMidiIn& pageMidiIn() const { return *m_midiIn; }
  VT& vt() const { return m_vt; }

  // The colour and font dialogs the pages open; empty answers are a Cancel.
  // The system's dialogs by default.
  std::function<std::optional<QColor>(const QColor& initiale)> choisitCouleur;
  std::function<std::optional<QFont>(const QFont& initiale)> choisitPolice;

 protected:
  void done(int r) override;

 private:
  VT& m_vt;
  QTabWidget* m_onglets;
  PageDiv* m_div;
  PageTab* m_tab;
  PageGam* m_gam;
  PageAccords* m_accords;
  PageMet* m_met;
  PageMidi* m_midi;
  PageMidiIn* m_midiIn;
  QPushButton* m_ok;
  QPushButton* m_annuler;
  QPushButton* m_aide;
  QPointer<FAideNavigateur> m_navigateur;
};

}  // namespace vt
