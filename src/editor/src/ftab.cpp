// The editor's window: its layout, the strip's picture and its size, the scroll
// bar by bars, the start of a fresh document, and what the main window asks.
#include "editor/ftab.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QIcon>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QMessageBox>
#include <QPalette>
#include <QScrollBar>
#include <QToolBar>
#include <QVBoxLayout>
#include <algorithm>

#include "dialogs/ftab_drums.h"
#include "dialogs/ftab_mesure_edit.h"
#include "ftab_play.h"
#include "ftab_strip.h"
#include "ftab_toolbar.h"
#include "render/strip_renderer.h"
#include "render_qt/painter_surface.h"
#include "render_qt/resources.h"
#include "shell/vt.h"

namespace vt {

namespace {
Colour couleur(lng valeur) {
  return static_cast<Colour>(valeur) & 0xFFFFFFu;
}
Colour couleur(const QColor& c) {
  return rgb(c.red(), c.green(), c.blue());
}
}  // namespace

FTab::FTab(VT& vt, QWidget* parent)
    : QWidget(parent), m_vt(vt), m_doc(vt.document()), m_lecture(std::make_unique<LectureTab>()) {
  setWindowIcon(QIcon(QStringLiteral(":/toolbar/TB_TAB.png")));
  // One column per eighth when the editor loads.
  m_tab.setViewMode(2, false);
  appliqueRéglages();

  auto* pile = new QVBoxLayout(this);
  pile->setContentsMargins(0, 0, 0, 0);
  pile->setSpacing(0);
  m_barreMenus = new QMenuBar(this);
  m_barreMenus->setNativeMenuBar(false);
  pile->setMenuBar(m_barreMenus);

  créeBarres();
  pile->addLayout(rangéesBarres());

  // The strip with its scroll bar, and the tracks standing on the right.
  auto* rangée = new QHBoxLayout;
  rangée->setContentsMargins(0, 0, 0, 0);
  rangée->setSpacing(0);
  auto* bande = new QVBoxLayout;
  bande->setContentsMargins(0, 0, 0, 0);
  bande->setSpacing(0);
  m_surface = std::make_unique<PainterSurface>(880, 400);
  m_renderer =
      std::make_unique<CStripRenderer>(m_doc, m_tab, *m_surface, vt.guitare(), &sourcePortée());
  m_picTab = new PicTab(*this, *m_surface, this);
  bande->addWidget(m_picTab, 1);
  m_hScroll = new QScrollBar(Qt::Horizontal, this);
  m_hScroll->setObjectName(QStringLiteral("hScroll"));
  m_hScroll->setSingleStep(1);
  bande->addWidget(m_hScroll);
  rangée->addLayout(bande, 1);
  rangée->addWidget(barre(QStringLiteral("tbPistes")));
  pile->addLayout(rangée, 1);
  connect(m_hScroll, &QScrollBar::valueChanged, this, [this](int v) { hScroll_Change(v); });
  setFocusProxy(m_picTab);

  message = [this](const QString& texte) {
    QMessageBox::warning(this, m_vt.loadString(1200), texte);
  };
  question = [this](const QString& texte, QMessageBox::StandardButtons boutons) {
    return QMessageBox::warning(this, m_vt.loadString(1200), texte, boutons);
  };
  demandeMesures = [this](int mode, PositionsMesures& positions) {
    return FTabMesureEdit::getMesurePositions(this, Textes{m_vt.setLang()}, doc(), mode, positions);
  };
  choisitFichier = [this](bool enregistrer, const QString& dossier, const QString& filtre,
                          const QString& titre) {
    return enregistrer ? QFileDialog::getSaveFileName(this, titre, dossier, filtre)
                       : QFileDialog::getOpenFileName(this, titre, dossier, filtre);
  };

  créeMenus();
  barresDesRéglages();
  connecteJeu();
  connecteDialogues();
  connecteImports();
  connecteImpression();
  load_lang();
  DebugInitialisation();
}

FTab::~FTab() {
  // The windows that stand beside the editor go with it.
  for (FTabToolBar* f : m_tabFloatingToolBars)
    if (f != nullptr) {
      f->disconnect(this);
      delete f;
    }
  delete m_batterie;
  arrêteNotes();
}

int FTab::piste() const {
  return doc().CurseurPiste();
}
int FTab::nbCordes() const {
  return doc().getGuitareNbrCordes(piste());
}
int FTab::CurseurCorde() const {
  return doc().CurseurCorde();
}
const QImage& FTab::image() const {
  return m_surface->image();
}
QWidget* FTab::picTab() const {
  return m_picTab;
}

QAction* FTab::entrée(const QString& nom) const {
  const auto it = m_entrées.find(nom);
  return it == m_entrées.end() ? nullptr : it->second;
}

void FTab::DebugInitialisation() {
  // The one document is refilled, never replaced: everything holds it by reference.
  doc().initialize(m_vt.guitare());
  arrêteNotes();
  marquesVue();
  updateLastOpenFile();
  disponibilités();
  disableUndoRedoButtons();
  tbPistesUpdate();
  limitesDéfilement();
  drawInLine();
  curseurDéplacé();
  montreImage();
}

void FTab::appliqueRéglages() {
  const Settings& s = m_vt.settings();
  m_tab.TAB_VIEW_MARGIN_LEFT = s.TAB_VIEW_MARGIN_LEFT;
  m_tab.TAB_VIEW_MARGIN_RIGHT = s.TAB_VIEW_MARGIN_RIGHT;
  m_tab.TAB_VIEW_MARGIN_TOP = s.TAB_VIEW_MARGIN_TOP;
  m_tab.TAB_VIEW_MARGIN_TOP_TAB = s.TAB_VIEW_MARGIN_TOP_TAB;
  m_tab.TAB_VIEW_MARGIN_TOP_PORTEE = s.TAB_VIEW_MARGIN_TOP_PORTEE;
  m_tab.TAB_VIEW_INTER_STRINGS = s.TAB_VIEW_INTER_STRINGS;
  m_tab.TAB_VIEW_INTER_NOTE = s.TAB_VIEW_INTER_NOTE;
  m_tab.TAB_VIEW_INTER_MESURE = s.TAB_VIEW_INTER_MESURE;
  m_tab.TAB_VIEW_INTER_PORTEE = s.TAB_VIEW_INTER_PORTEE > 0 ? s.TAB_VIEW_INTER_PORTEE : 4;
  m_tab.cfgCurseurColor = couleur(s.cfgCurseurColor);
  m_tab.cfgEventColor = couleur(s.cfgEventColor);
  m_tab.cfgLineColor = couleur(s.cfgLineColor);
  m_tab.cfgBackColor = couleur(s.cfgBackColor);
  if (!s.cfgFontName.isEmpty()) m_tab.cfgFontName = s.cfgFontName.toStdString();
  if (s.cfgFontSize > 0) m_tab.cfgFontSize = s.cfgFontSize;
  m_tab.cfgFontBold = s.cfgFontBold != 0;
  m_tab.cfgFontTransparent = s.cfgFontTransparent != 0;
  m_tab.cfgAffichePortée = s.cfgAffichePortée != 0;
  // The ruler takes the desktop's button colours.
  const QPalette palette = QApplication::palette();
  m_tab.couleurBoutonFace = couleur(palette.color(QPalette::Button));
  m_tab.couleurBoutonOmbre = couleur(palette.color(QPalette::Dark));
}

void FTab::drawInLine() {
  appliqueRéglages();
  m_renderer->drawInLine();
  m_toutSale = true;
}

void FTab::salitMesureCurseur() {
  const int m = doc().CurseurMesure();
  const StripMetrics& g = m_renderer->metrics();
  // The bar between its lines, and a pixel more on each side for the lines.
  const int gauche = g.barreGaucheX(m) - 1;
  m_sale |= QRect(gauche, 0, g.largeurMesure(m) + 3, m_surface->ScaleHeight());
}

void FTab::montreImage() {
  if (m_toutSale) {
    m_picTab->update();
  } else if (!m_sale.isEmpty()) {
    m_picTab->update(m_sale);
  }
  m_toutSale = false;
  m_sale = QRect();
}

void FTab::refreshPicture() {
  limitesDéfilement();
  drawInLine();
  montreImage();
}

void FTab::Form_Resize(int largeur, int hauteur) {
  const auto* cadre = qobject_cast<const QMdiSubWindow*>(parentWidget());
  if ((cadre != nullptr && cadre->isMinimized()) || largeur < 1 || hauteur < 1) return;
  m_surface->resize(largeur, hauteur);
  drawInLine();
  limitesDéfilement();
  montreImage();
}

void FTab::limitesDéfilement() {
  m_défilementBloqué = true;
  m_hScroll->setRange(1, std::max(1, doc().getMesureLast()));
  m_hScroll->setPageStep(
      std::max<int>(1, m_renderer->getMesureOnScreen(static_cast<int>(doc().m_lngScrollValue))));
  m_hScroll->setValue(static_cast<int>(doc().m_lngScrollValue));
  m_défilementBloqué = false;
}

void FTab::hScroll_Change(int valeur) {
  if (m_défilementBloqué) return;
  if (m_joue) {
    // While the piece plays the bar follows the player only.
    limitesDéfilement();
    return;
  }
  CVantoroTablature& d = doc();
  d.m_lngScrollValue = std::clamp(valeur, 1, std::max(1, d.getMesureLast()));
  const int premier = static_cast<int>(d.m_lngScrollValue);
  if (d.CurseurMesure() < premier) d.setCurseurMesure(static_cast<i16>(premier));
  const int n = m_renderer->getMesureOnScreen(premier);
  if (d.CurseurMesure() >= premier + n)
    d.setCurseurMesure(static_cast<i16>(std::max(premier, premier + n - 1)));
  if (d.CurseurX() < 0 || d.CurseurX() >= d.getMesureLargeur(d.CurseurMesure())) d.setCurseurX(0);
  m_hScroll->setPageStep(std::max(1, n));
  drawInLine();
  curseurDéplacé();
  montreImage();
}

void FTab::changeLanguage() {
  load_lang();
  tbPistesUpdate();
}

void FTab::closeEvent(QCloseEvent* e) {
  TimerMIDIStop(true);
  arrêteNotes();
  // A changed tablature is offered to be saved; Cancel keeps the editor open.
  if (save_current_file() == QMessageBox::Cancel) {
    e->ignore();
    return;
  }
  if (m_batterie != nullptr) m_batterie->close();
  e->accept();
}

}  // namespace vt
