// The boot sequence and the shutdown of the main window.
#include <QApplication>
#include <QCloseEvent>
#include <QDialog>
#include <QDropEvent>
#include <QFile>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMessageBox>
#include <QMimeData>
#include <QScreen>
#include <QSettings>
#include <QStandardPaths>
#include <QStatusBar>
#include <QToolBar>
#include <cmath>

#include "faide_navigateur.h"
#include "fdebut.h"
#include "flang.h"
#include "ftip.h"
#include "render_qt/resources.h"
#include "shell/file_association.h"
#include "shell/manche.h"
#include "shell/required_files.h"
#include "shell/settings_store.h"
#include "shell/vt.h"
#include "sound/message_son.h"

namespace vt {

namespace {

constexpr double kTpp = 15.0;

// The start windows in the order of setStartWith.
const std::array<const QString*, 7> kFenêtresDémarrage = {
    &fen::FAccords,   &fen::FGammes, &fen::FMultimedia, &fen::FAccordeur,
    &fen::FMetronome, &fen::FTab,    &fen::FHarmony,
};

QRect zoneTravail() {
  const QScreen* écran = QGuiApplication::primaryScreen();
  return écran ? écran->availableGeometry() : QRect(0, 0, 1024, 768);
}

bool estUneTablature(const QString& nom) {
  return nom.size() >= 4 && nom.right(4).toLower() == QStringLiteral(".vtb");
}

}  // namespace

void VT::étape(const QString& nom) {
  if (m_observateur) m_observateur(nom);
}

void VT::showHourglass(bool on) {
  if (on) {
    setCursor(Qt::WaitCursor);
  } else {
    unsetCursor();
  }
}

bool VT::MDIForm_Load(const Démarrage& d) {
  // Default ways to meet the user, unless the caller gave its own.
  if (!m_interactions.getLang) m_interactions.getLang = [] { return FLang::getLang(); };
  if (!m_interactions.exec) m_interactions.exec = [](QDialog& dlg) { dlg.exec(); };
  if (!m_interactions.critique)
    m_interactions.critique = [](const QString& texte, const QString& titre) {
      QMessageBox::critical(nullptr, titre, texte);
    };
  if (!m_interactions.information)
    m_interactions.information = [this](const QString& texte) {
      QMessageBox::information(this, QStringLiteral("Vantoro"), texte);
    };
  if (!m_interactions.avertissement)
    m_interactions.avertissement = [this](const QString& texte) {
      // Offscreen nobody would read it.
      if (QGuiApplication::platformName() == QLatin1String("offscreen")) return;
      auto* boîte = new QMessageBox(QMessageBox::Warning, loadString(son::kTitreMessages), texte,
                                    QMessageBox::Ok, this);
      boîte->setAttribute(Qt::WA_DeleteOnClose);
      boîte->setWindowModality(Qt::NonModal);
      // A notice: the keyboard stays where the user is typing.
      boîte->setAttribute(Qt::WA_ShowWithoutActivating);
      boîte->show();
    };

  showHourglass(true);
  m_strAppPath = d.strAppPath.isEmpty() ? QCoreApplication::applicationDirPath() : d.strAppPath;
  if (!m_strAppPath.endsWith(QLatin1Char('/'))) m_strAppPath += QLatin1Char('/');
  étape(QStringLiteral("strAppPath"));

  load_ini();
  if (!initialize(d)) return false;
  load_resource();
  étape(QStringLiteral("load_resource"));
  load_lang();
  étape(QStringLiteral("load_lang"));

  m_son->midiOpenOut();
  étape(QStringLiteral("midiOpenOut"));
  m_son->midiOpenIn();
  étape(QStringLiteral("midiOpenIn"));
  m_portsOuverts = true;
  setStatusMidi();

  show();
  étape(QStringLiteral("show"));
  applyViewSettings();
  showHourglass(false);
  // Once, over the window: the user learns why nothing may be heard.
  montreMessagesSon();

  ligneDeCommande(d.ligneDeCommande);

  showHourglass(true);
  fenêtresAuDémarrage();
  showHourglass(false);

  if (m_settings.setTipsStartup == 1) montreAstuce();
  // The keys go to the main window once the start dialogs are gone.
  activateWindow();
  return true;
}

void VT::montreMessagesSon() {
  const QStringList avis = m_son->prendMessages();
  if (avis.isEmpty() || !m_interactions.avertissement) return;
  étape(QStringLiteral("avertissement"));
  m_interactions.avertissement(avis.join(QStringLiteral("\n\n")));
}

void VT::load_ini() {
  étape(QStringLiteral("load_ini"));
  const QRect zone = zoneTravail();
  const WorkArea wa{static_cast<float>(zone.x() * kTpp), static_cast<float>(zone.y() * kTpp),
                    static_cast<float>(zone.width() * kTpp),
                    static_cast<float>(zone.height() * kTpp)};
  auto demande = [this]() -> i16 {
    étape(QStringLiteral("FLang"));
    return m_interactions.getLang();
  };
  auto store = ouvreMagasin();
  m_settings.load_ini(*store, wa, m_strAppPath, demande);
  // A language that is neither French nor English was written by hand: ask.
  if (m_settings.setLang != kLangFrançais && m_settings.setLang != kLangAnglais)
    m_settings.setLang = demande();
  appliqueGéométrie();
}

void VT::appliqueGéométrie() {
  const QRect zone = zoneTravail();
  if (m_settings.Etat == kEtatMaximise) {
    setGeometry(zone);
    setWindowState(Qt::WindowMaximized);
    return;
  }
  // A value no screen could hold is as good as none.
  const auto pixels = [](float twips) {
    return std::isfinite(twips) && std::fabs(twips) < 1e7f
               ? static_cast<int>(std::lround(twips / kTpp))
               : 0;
  };
  QRect r(pixels(m_settings.Gauche), pixels(m_settings.Haut), pixels(m_settings.Largeur),
          pixels(m_settings.Hauteur));
  // A hand-made geometry that no screen shows, or a window too small to use,
  // gives way to the work area.
  bool visible = false;
  for (const QScreen* écran : QGuiApplication::screens())
    visible = visible || écran->availableGeometry().intersected(r).width() >= 100;
  if (r.width() < 400 || r.height() < 300 || r.width() > 4 * zone.width() ||
      r.height() > 4 * zone.height() || !visible)
    r = zone;
  move(r.topLeft());
  resize(r.size());
}

bool VT::initialize(const Démarrage& d) {
  étape(QStringLiteral("initialize"));
  // 1. The ".vtb" files open with this program.
  Association a;
  a.dossierDonnées = d.dossierDonnéesUtilisateur.isEmpty()
                         ? QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)
                         : d.dossierDonnéesUtilisateur;
  a.exécutable = QCoreApplication::applicationFilePath();
  a.strAppPath = m_strAppPath;
  enregistreAssociation(a, d.rafraîchirBureau);
  étape(QStringLiteral("association"));

  // 2. The required files; the first one missing ends the program.
  if (const auto manquant = premierFichierManquant(m_strAppPath)) {
    étape(QStringLiteral("missing ") + *manquant);
    showHourglass(false);
    m_interactions.critique(messageFichierManquant(*manquant, m_settings.setLang),
                            loadString(3002));
    return false;
  }
  étape(QStringLiteral("checkFile"));

  // 3. The music font, for this process; a failure costs only the staff's signs.
  installeMusicalFont(QFile::encodeName(m_strAppPath).toStdString());
  étape(QStringLiteral("font"));

  // 4 to 8.
  for (std::size_t i = 0; i < kNotes.size(); ++i)
    m_strNotes[i] = QString::fromUtf8(kNotes[i]);
  loadGuitare(m_settings.setGuitare);
  étape(QStringLiteral("loadGuitare"));
  m_booInsert = false;
  m_mnuFileLang[0]->setChecked(m_settings.setLang == kLangFrançais);
  m_mnuFileLang[1]->setChecked(m_settings.setLang != kLangFrançais);
  m_document = std::make_unique<CVantoroTablature>(m_guitare);
  étape(QStringLiteral("document"));
  return true;
}

void VT::applyViewSettings() {
  m_toolbar->setVisible(m_settings.setToolBar != 0);
  statusBar()->setVisible(m_settings.setStatusBar != 0);
  load_picManche_picture();
  setMancheVisible(m_settings.setMancheVisible != 0);
  étape(QStringLiteral("applyViewSettings"));
  if (m_settings.setLoadHelpAccessWndAtStartup != 0) {
    montreFenetre(fen::FAide);
    étape(QStringLiteral("FAide"));
  }
}

void VT::ligneDeCommande(const QString& ligne) {
  étape(QStringLiteral("commandLine"));
  if (!ligne.isEmpty()) {
    // The whole line is the file's name; anything else skips the start page too.
    if (estUneTablature(ligne)) {
      if (QWidget* w = montreFenetre(fen::FTab)) {
        if (auto* tab = dynamic_cast<FenetreTablature*>(w)) tab->ouvreLigneDeCommande(ligne);
        étape(QStringLiteral("FTab ") + ligne);
      }
    }
    return;
  }
  if (m_settings.setDémarrage != 1) return;
  QApplication::setOverrideCursor(Qt::WaitCursor);
  FDebut page(*this);
  page.rendCurseurALActivation();
  étape(QStringLiteral("FDébut"));
  m_interactions.exec(page);
  page.rendCurseurSiBesoin();
}

void VT::fenêtresAuDémarrage() {
  for (std::size_t i = 0; i < kFenêtresDémarrage.size(); ++i) {
    if (m_settings.setStartWith[i] == 0) continue;
    if (montreFenetre(*kFenêtresDémarrage[i]))
      étape(QStringLiteral("startWith ") + *kFenêtresDémarrage[i]);
  }
}

void VT::montreAstuce() {
  QApplication::setOverrideCursor(Qt::WaitCursor);
  FTip astuce(*this);
  astuce.rendCurseurALActivation();
  étape(QStringLiteral("FTip"));
  m_interactions.exec(astuce);
  astuce.rendCurseurSiBesoin();
}

// ---- Shutdown ----------------------------------------------------------------------

void VT::closeEvent(QCloseEvent* e) {
  // The options dialog may be loaded and hidden.
  m_fenetres.décharge(fen::FOptions);
  if (hasDocument()) {
    const i16 etat = isMinimized() ? kEtatMinimise : isMaximized() ? kEtatMaximise : kEtatNormal;
    if (etat == kEtatNormal) {
      m_settings.Gauche = static_cast<float>(x() * kTpp);
      m_settings.Haut = static_cast<float>(y() * kTpp);
      m_settings.Largeur = static_cast<float>(width() * kTpp);
      m_settings.Hauteur = static_cast<float>(height() * kTpp);
    }
    auto store = ouvreMagasin();
    m_settings.save_ini(*store, etat, m_strAppPath);
    étape(QStringLiteral("save_ini"));
  }
  // Each window may refuse (the editor asks to save its tablature).
  m_mdi->closeAllSubWindows();
  if (!m_mdi->subWindowList().isEmpty()) {
    e->ignore();
    return;
  }
  if (m_aide) m_aide->close();
  Form_Unload();
  e->accept();
}

void VT::Form_Unload() {
  if (!m_portsOuverts) return;
  m_son->midiCloseOut();
  étape(QStringLiteral("midiCloseOut"));
  m_son->midiCloseIn();
  étape(QStringLiteral("midiCloseIn"));
  m_portsOuverts = false;
}

// ---- A tablature dropped on the window -------------------------------------------

namespace {
QString seulFichierTablature(const QMimeData* d) {
  if (!d || !d->hasUrls()) return {};
  const QList<QUrl> urls = d->urls();
  if (urls.size() != 1 || !urls.front().isLocalFile()) return {};
  const QString chemin = urls.front().toLocalFile();
  return estUneTablature(chemin) ? chemin : QString();
}
}  // namespace

void VT::dragEnterEvent(QDragEnterEvent* e) {
  if (m_fenetres.estDisponible(fen::FTab) && !seulFichierTablature(e->mimeData()).isEmpty())
    e->acceptProposedAction();
}

void VT::dropEvent(QDropEvent* e) {
  const QString chemin = seulFichierTablature(e->mimeData());
  if (chemin.isEmpty()) return;
  if (auto* tab = dynamic_cast<FenetreTablature*>(montreFenetre(fen::FTab))) {
    e->acceptProposedAction();
    tab->ouvreFichierDéposé(chemin);
  }
}

}  // namespace vt
