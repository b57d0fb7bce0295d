// The main window's commands: File, Window and Help menus, the status bar,
// the language.
#include <QAction>
#include <QApplication>
#include <QDesktopServices>
#include <QDialog>
#include <QFile>
#include <QLabel>
#include <QLocale>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPageSetupDialog>
#include <QPrinterInfo>
#include <QScrollBar>
#include <QToolBar>
#include <QUrl>
#include <QUrlQuery>
#include <filesystem>

#include "document/cp1252.h"
#include "faide_navigateur.h"
#include "fapropos.h"
#include "formats/catalogue.h"
#include "shell/manche.h"
#include "shell/textes.h"
#include "shell/vt.h"
#include "status_panel.h"

namespace vt {

namespace {

const std::array<const QString*, 7> kFenêtresMenu = {
    &fen::FAccords,   &fen::FGammes, &fen::FMultimedia, &fen::FAccordeur,
    &fen::FMetronome, &fen::FTab,    &fen::FHarmony,
};

// The order in which a change of language reaches the windows.
const std::array<const QString*, 8> kOrdreLangue = {
    &fen::FHarmony,   &fen::FTab,        &fen::FAccords,   &fen::FGammes,
    &fen::FAccordeur, &fen::FMultimedia, &fen::FMetronome, &fen::FAide,
};

}  // namespace

// ---- File --------------------------------------------------------------------------

void VT::MenuGlobalFile(int index) {
  switch (index) {
    case 2: {
      if (QPrinterInfo::availablePrinterNames().isEmpty()) {
        m_interactions.information(loadString(69));
        return;
      }
      showHourglass(true);
      QPageSetupDialog dialogue(&printer(), this);
      showHourglass(false);
      m_interactions.exec(dialogue);
      break;
    }
    case 4:
      montreOptions();
      break;
    case 5:
      close();
      break;
    default:
      break;
  }
}

void VT::mnuFileLang_Click(int index) {
  const i16 langue = index == 0 ? kLangFrançais : kLangAnglais;
  m_mnuFileLang[0]->setChecked(index == 0);
  m_mnuFileLang[1]->setChecked(index != 0);
  if (langue == m_settings.setLang) return;
  m_settings.setLang = langue;
  changeLanguage();
}

// ---- Windows -------------------------------------------------------------------------

QWidget* VT::montreFenetre(const QString& nom) {
  QWidget* w = m_fenetres.charge(nom);
  if (!w) return nullptr;
  if (auto* sub = qobject_cast<QMdiSubWindow*>(w->parentWidget())) {
    if (sub->isMinimized()) sub->showNormal();
    sub->show();
    m_mdi->setActiveSubWindow(sub);
  } else {
    w->show();
    w->raise();
    w->activateWindow();
  }
  return w;
}

void VT::montreOptions(const QString& onglet) {
  if (!m_fenetres.estDisponible(fen::FOptions)) return;
  showHourglass(true);
  QWidget* w = m_fenetres.charge(fen::FOptions);
  if (auto* o = dynamic_cast<FenetreOptions*>(w)) {
    o->Form_Load();
    // Without a key the dialog opens on the page it showed last.
    if (!onglet.isEmpty()) o->selectTab(onglet);
  }
  showHourglass(false);
  if (auto* dialogue = qobject_cast<QDialog*>(w)) {
    m_interactions.exec(*dialogue);
  } else if (w) {
    w->show();
  }
}

void VT::mnuFen_Click(int index) {
  if (index >= 0 && index < static_cast<int>(kFenêtresMenu.size())) {
    montreFenetre(*kFenêtresMenu[static_cast<std::size_t>(index)]);
    return;
  }
  switch (index) {
    case 8:
      m_mdi->cascadeSubWindows();
      break;
    case 9:
      mosaïque(Qt::Vertical);
      break;
    case 10:
      mosaïque(Qt::Horizontal);
      break;
    case 11:
      arrangeIcônes();
      break;
    default:
      break;
  }
}

// Tiles the open windows: one above the other (Qt::Vertical) or side by side.
void VT::mosaïque(Qt::Orientation sens) {
  QList<QMdiSubWindow*> fenêtres;
  for (QMdiSubWindow* s : m_mdi->subWindowList())
    if (s->isVisible() && !s->isMinimized()) fenêtres.append(s);
  if (fenêtres.isEmpty()) return;
  const QRect zone = m_mdi->viewport()->rect();
  const int n = static_cast<int>(fenêtres.size());
  for (int i = 0; i < n; ++i) {
    QMdiSubWindow* s = fenêtres[i];
    if (s->isMaximized()) s->showNormal();
    if (sens == Qt::Vertical) {
      const int h = zone.height() / n;
      s->setGeometry(0, i * h, zone.width(), i == n - 1 ? zone.height() - i * h : h);
    } else {
      const int l = zone.width() / n;
      s->setGeometry(i * l, 0, i == n - 1 ? zone.width() - i * l : l, zone.height());
    }
  }
}

// Lines the minimized windows up along the bottom of the area.
void VT::arrangeIcônes() {
  const QRect zone = m_mdi->viewport()->rect();
  int x = 0;
  int y = zone.bottom();
  for (QMdiSubWindow* s : m_mdi->subWindowList()) {
    if (!s->isMinimized()) continue;
    const QSize t = s->size();
    if (x > 0 && x + t.width() > zone.width()) {
      x = 0;
      y -= t.height();
    }
    s->move(x, y - t.height() + 1);
    x += t.width();
  }
}

// ---- Help ------------------------------------------------------------------------------

void VT::mnuAide_Click(int index) {
  switch (index) {
    case 0:
      montreAide(QStringLiteral("index.html"));
      break;
    case 1:
      montreAide(QStringLiteral("index.html"), true);
      break;
    case 2:
      m_settings.setLoadHelpAccessWndAtStartup = kVrai;
      montreFenetre(fen::FAide);
      break;
    case 7: {
      QUrl courriel(QStringLiteral("mailto:") + QStringLiteral(VT_ADRESSE_COURRIEL));
      QUrlQuery sujet;
      sujet.addQueryItem(QStringLiteral("subject"), QStringLiteral("Vantoro"));
      courriel.setQuery(sujet);
      if (!QDesktopServices::openUrl(courriel)) m_interactions.information(loadString(57));
      break;
    }
    case 8:
      if (!QDesktopServices::openUrl(QUrl(QStringLiteral(VT_ADRESSE_WEB))))
        m_interactions.information(loadString(57));
      break;
    case 10: {
      FApropos apropos(*this);
      m_interactions.exec(apropos);
      break;
    }
    default:
      break;
  }
}

void VT::montreAide(const QString& page, bool recherche) {
  if (!m_aide) {
    m_aide = new FAideNavigateur(*this);
  }
  m_aide->montrePage(page);
  if (recherche) m_aide->cherche();
  m_aide->show();
  m_aide->raise();
  m_aide->activateWindow();
}

// ---- Status bar -------------------------------------------------------------------------

void VT::setStatusText(int id) {
  const QString texte = id == 0 ? QString() : loadString(id);
  m_statusTextId = id;
  // Only a real change repaints: the hint is set on every mouse move.
  if (m_panneauTexte->text() != texte) m_panneauTexte->setText(texte);
}

void VT::setStatusPosition(int curseurMesure, int curseurX) {
  const QString temps = QLocale().toString(static_cast<double>(curseurX) / 48.0, 'f', 2);
  m_position->setText(QString::number(curseurMesure) + QStringLiteral(" : ") + temps);
}

void VT::setStatusMidi() {
  const int instru = m_settings.setMIDIinstru;
  const QString nom = instru <= 127 ? loadString(4000 + instru) : QString::number(instru);
  m_midi->setText(loadString(1163));
  m_midi->setToolTip(nom);
}

void VT::toggleInsert() {
  m_booInsert = !m_booInsert;
  m_insert->setText(m_booInsert ? QStringLiteral("INS") : QStringLiteral("EDIT"));
}

// ---- Language ----------------------------------------------------------------------------

void VT::load_lang() {
  setStatusText(0);
  setWindowTitle(loadString(1));
  libellésMenus();
  libellésBarre();
  m_position->setToolTip(loadString(48));
  m_insert->setToolTip(loadString(50));
  loadGuitare(m_settings.setGuitare);
  setStatusMidi();
}

void VT::changeLanguage() {
  load_lang();
  std::vector<QWidget*> faites;
  for (const QString* nom : kOrdreLangue) {
    if (auto* f = m_fenetres.interface<FenetreVT>(*nom)) {
      f->changeLanguage();
      faites.push_back(m_fenetres.fenetre(*nom));
    }
  }
  // The windows the list does not name (the options dialog) follow as well.
  for (QWidget* w : m_fenetres.chargées()) {
    if (std::find(faites.begin(), faites.end(), w) != faites.end()) continue;
    if (auto* f = dynamic_cast<FenetreVT*>(w)) f->changeLanguage();
  }
  if (m_aide) m_aide->load_lang();
}

void VT::changeSkin(const QString& strSkinPath) {
  if (strSkinPath == m_settings.strSkinPath) return;
  m_settings.strSkinPath = strSkinPath;
  for (const QString* nom :
       {&fen::FAccords, &fen::FAccordeur, &fen::FGammes, &fen::FHarmony, &fen::FMetronome}) {
    if (auto* f = m_fenetres.interface<FenetreVT>(*nom)) f->load_skin();
  }
  load_picManche_picture();
  updateManche();
  drawMancheContenu();
}

// ---- The current instrument ------------------------------------------------------------

void VT::loadGuitare(int index) {
  const std::filesystem::path fichier(
      QFile::encodeName(m_strAppPath + QStringLiteral("vt.ini")).toStdString());
  m_guitare = CatalogueGuitares::load(fichier).loadGuitare(index, m_settings.setLang);
  const QString nom = QString::fromStdString(cp1252ToUtf8(m_guitare.nom));
  m_panneauGuitare->setText(nom);
  m_panneauGuitare->setToolTip(nom);
  if (isVisible()) {
    updateManche();
    drawMancheContenu();
  }
}

}  // namespace vt
