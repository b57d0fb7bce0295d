#include "ftab_page_setup.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QColorDialog>
#include <QDialogButtonBox>
#include <QFontDialog>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTabWidget>
#include <QToolButton>
#include <QVBoxLayout>
#include <cmath>

#include "reglages_page.h"

namespace vt {

namespace {

// A picture of lines of text set to the left, the centre or the right.
QIcon iconeAlignement(int alignement) {
  QPixmap p(20, 20);
  p.fill(Qt::transparent);
  QPainter painter(&p);
  painter.setPen(QPen(Qt::black, 2));
  const int longueurs[] = {16, 10, 14, 8};
  for (int i = 0; i < 4; ++i) {
    const int l = longueurs[i];
    const int x = alignement == 0 ? 2 : alignement == 1 ? (20 - l) / 2 : 18 - l;
    painter.drawLine(x, 3 + i * 4, x + l, 3 + i * 4);
  }
  return QIcon(p);
}

QColor qCouleur(lng c) {
  return QColor(c & 0xFF, (c >> 8) & 0xFF, (c >> 16) & 0xFF);
}
lng vbCouleur(const QColor& c) {
  return c.red() | (c.green() << 8) | (c.blue() << 16);
}

}  // namespace

FTabPageSetup::FTabPageSetup(const Textes& t, Settings& settings, QWidget* parent)
    : QDialog(parent), m_t(t), m_settings(settings), m_copie(settings) {
  setObjectName(QStringLiteral("FTabPageSetup"));
  setWindowTitle(t.loadString(1238));
  choisitPolice = [this](QFont& police) {
    bool ok = false;
    const QFont choix = QFontDialog::getFont(&ok, police, this, m_t.loadString(1249));
    if (ok) police = choix;
    return ok;
  };
  choisitCouleur = [this](QColor& couleur) {
    const QColor choix = QColorDialog::getColor(couleur, this, m_t.loadString(1377));
    if (choix.isValid()) couleur = choix;
    return choix.isValid();
  };

  auto* colonne = new QVBoxLayout(this);
  m_onglets = new QTabWidget(this);
  m_onglets->setObjectName(QStringLiteral("TabStrip"));
  colonne->addWidget(m_onglets);

  // ---- Layout ----
  auto* disposition = new QWidget(m_onglets);
  auto* grille = new QFormLayout(disposition);
  const auto curseur = [&](const char* nom, int id, int min, int max, int valeur) {
    auto* s = new QSlider(Qt::Horizontal, disposition);
    s->setObjectName(QString::fromLatin1(nom));
    s->setRange(min, max);
    s->setValue(valeur);
    s->setMinimumWidth(220);
    auto* valeurTexte = new QLabel(disposition);
    valeurTexte->setMinimumWidth(40);
    const bool facteur = QLatin1String(nom) == QLatin1String("sldTabPRN_VIEW_FACTOR");
    const auto affiche = [valeurTexte, facteur](int v) {
      valeurTexte->setText(facteur ? QString::number(v / static_cast<double>(kDixiemes), 'f', 1)
                                   : QString::number(v));
    };
    affiche(valeur);
    connect(s, &QSlider::valueChanged, valeurTexte, affiche);
    auto* rangée = new QHBoxLayout;
    rangée->addWidget(s, 1);
    rangée->addWidget(valeurTexte);
    auto* l = new QLabel(t.loadString(id), disposition);
    l->setBuddy(s);
    grille->addRow(l, rangée);
    return s;
  };
  m_facteur = curseur("sldTabPRN_VIEW_FACTOR", 1241, 10, 60,
                      static_cast<int>(std::lround(m_copie.cfgPrintFactor * kDixiemes)));
  m_margeGauche = curseur("sldTabMARGIN_LEFT", 1242, 0, 200, m_copie.PRN_SET_VIEW_MARGIN_LEFT);
  m_margeHaut = curseur("sldTabMARGIN_TOP", 1243, 40, 400, m_copie.PRN_SET_VIEW_MARGIN_TOP);
  m_cordes = curseur("sldTabINTER_STRINGS", 1244, 6, 40, m_copie.PRN_SET_VIEW_INTER_STRINGS);
  m_note = curseur("sldTabINTER_NOTE", 1245, 8, 80, m_copie.PRN_SET_VIEW_INTER_NOTE);
  m_mesure = curseur("sldTabINTER_MESURE", 1246, 4, 80, m_copie.PRN_SET_VIEW_INTER_MESURE);
  auto* restaure = new QPushButton(t.loadString(99), disposition);
  restaure->setObjectName(QStringLiteral("btnRestore"));
  connect(restaure, &QPushButton::clicked, this, [this] { btnRestore_Click(); });
  grille->addRow(QString(), restaure);
  m_onglets->addTab(disposition, t.loadString(1239));

  // ---- Head ----
  auto* entête = new QWidget(m_onglets);
  auto* rangéeEntête = new QHBoxLayout(entête);
  auto* éléments = new QGroupBox(t.loadString(1247), entête);
  auto* liste = new QVBoxLayout(éléments);
  auto* groupe = new QButtonGroup(this);
  for (int i = 0; i < 8; ++i) {
    auto* o = new QRadioButton(t.loadString(1263 + i), éléments);
    o->setObjectName(QStringLiteral("opt%1").arg(i));
    groupe->addButton(o, i);
    liste->addWidget(o);
    m_opt[static_cast<std::size_t>(i)] = o;
  }
  connect(groupe, &QButtonGroup::idClicked, this, [this](int i) { choisitElement(i); });
  rangéeEntête->addWidget(éléments);
  auto* style = new QVBoxLayout;
  m_chk = new QCheckBox(t.loadString(1248), entête);
  m_chk->setObjectName(QStringLiteral("chk"));
  connect(m_chk, &QCheckBox::toggled, this, [this](bool oui) {
    m_copie.cfgPrint[static_cast<std::size_t>(m_element)] = oui ? 1 : 0;
  });
  style->addWidget(m_chk);
  m_labFont = new QLabel(entête);
  m_labFont->setObjectName(QStringLiteral("labFont"));
  m_labFont->setFrameShape(QFrame::StyledPanel);
  m_labFont->setMinimumSize(260, 60);
  m_labFont->setAlignment(Qt::AlignCenter);
  style->addWidget(m_labFont);
  auto* boutons = new QHBoxLayout;
  auto* police = new QPushButton(t.loadString(1249), entête);
  police->setObjectName(QStringLiteral("btnPolice"));
  connect(police, &QPushButton::clicked, this, [this] {
    tCfgFont& f = m_copie.cfgFont[static_cast<std::size_t>(m_element)];
    QFont q(f.nom.isEmpty() ? QStringLiteral("Arial") : f.nom);
    q.setPointSizeF(f.taille > 0 ? f.taille : 10);
    q.setBold(f.gras != 0);
    q.setItalic(f.italique != 0);
    q.setUnderline(f.souligné != 0);
    q.setStrikeOut(f.barrée != 0);
    if (!choisitPolice(q)) return;
    f.nom = q.family();
    f.taille = static_cast<float>(q.pointSizeF());
    f.gras = toVbool(q.bold());
    f.italique = toVbool(q.italic());
    f.souligné = toVbool(q.underline());
    f.barrée = toVbool(q.strikeOut());
    montreStyle();
  });
  boutons->addWidget(police);
  auto* couleur = new QPushButton(t.loadString(1377), entête);
  couleur->setObjectName(QStringLiteral("btnCouleur"));
  connect(couleur, &QPushButton::clicked, this, [this] {
    tCfgFont& f = m_copie.cfgFont[static_cast<std::size_t>(m_element)];
    QColor c = qCouleur(f.couleur);
    if (!choisitCouleur(c)) return;
    f.couleur = vbCouleur(c);
    montreStyle();
  });
  boutons->addWidget(couleur);
  style->addLayout(boutons);
  auto* alignements = new QHBoxLayout;
  alignements->addWidget(new QLabel(t.loadString(1250), entête));
  auto* groupeAlignement = new QButtonGroup(this);
  const char* nomsAlignement[] = {"imgAlignementGauche", "imgAlignementCentre",
                                  "imgAlignementDroite"};
  for (int a = 0; a < 3; ++a) {
    auto* b = new QToolButton(entête);
    b->setObjectName(QString::fromLatin1(nomsAlignement[a]));
    b->setCheckable(true);
    b->setIcon(iconeAlignement(a));
    b->setToolTip(t.loadString(1272 + a));
    groupeAlignement->addButton(b, a);
    alignements->addWidget(b);
    m_alignement[static_cast<std::size_t>(a)] = b;
  }
  alignements->addStretch(1);
  connect(groupeAlignement, &QButtonGroup::idClicked, this, [this](int a) {
    m_copie.cfgPrintAlign[static_cast<std::size_t>(m_element)] = static_cast<byt>(a);
  });
  style->addLayout(alignements);
  auto* l = new QLabel(t.loadString(1251), entête);
  m_numPage = new QLineEdit(m_copie.cfgPrintNumpage, entête);
  m_numPage->setObjectName(QStringLiteral("txtPrintNumpage"));
  l->setBuddy(m_numPage);
  style->addWidget(l);
  style->addWidget(m_numPage);
  style->addStretch(1);
  rangéeEntête->addLayout(style, 1);
  m_onglets->addTab(entête, t.loadString(1240));

  // ---- Options ----
  auto* options = new QWidget(m_onglets);
  auto* cases = new QVBoxLayout(options);
  const auto option = [&](const char* nom, int id, vbool valeur) {
    auto* c = new QCheckBox(t.loadString(id), options);
    c->setObjectName(QString::fromUtf8(nom));
    c->setChecked(valeur != 0);
    cases->addWidget(c);
    return c;
  };
  m_portee = option("chkTabPrintPortée", 1252, m_copie.cfgPrintPortée);
  m_accords = option("chkTabPrintAccords", 1253, m_copie.cfgPrintAccords);
  m_numMesure = option("chkTabPrintNumMesure", 1254, m_copie.cfgPrintNumMesure);
  m_rythme = option("chkTabPrintTabRythme", 1255, m_copie.cfgPrintTabRythme);
  m_silences = option("chkTabPrintPortéeSilence", 1256, m_copie.cfgPrintPortéeSilence);
  m_silence1 = option("chkPrintPortéeSilence1Mesure", 1258, m_copie.cfgPrintPortéeSilence1Mesure);
  cases->addStretch(1);
  m_onglets->addTab(options, t.loadString(1271));

  auto* bas = new QDialogButtonBox(this);
  auto* ok = bas->addButton(t.loadString(90), QDialogButtonBox::AcceptRole);
  ok->setObjectName(QStringLiteral("OK"));
  ok->setDefault(true);
  auto* annuler = bas->addButton(t.loadString(91), QDialogButtonBox::RejectRole);
  annuler->setObjectName(QStringLiteral("btnAnnuler"));
  auto* aideBouton = bas->addButton(t.loadString(93), QDialogButtonBox::HelpRole);
  aideBouton->setObjectName(QStringLiteral("btnAide"));
  connect(bas, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(bas, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(bas, &QDialogButtonBox::helpRequested, this, [this] {
    if (aide) aide(QStringLiteral("printing.html#setup"));
  });
  colonne->addWidget(bas);
  choisitElement(0);
}

void FTabPageSetup::choisitElement(int index) {
  if (index < 0 || index > 7) return;
  m_element = index;
  m_opt[static_cast<std::size_t>(index)]->setChecked(true);
  montreElement();
}

void FTabPageSetup::montreElement() {
  const std::size_t i = static_cast<std::size_t>(m_element);
  m_chk->setChecked(m_copie.cfgPrint[i] == 1);
  const int a = m_copie.cfgPrintAlign[i] <= 2 ? m_copie.cfgPrintAlign[i] : 1;
  m_alignement[static_cast<std::size_t>(a)]->setChecked(true);
  montreStyle();
}

void FTabPageSetup::montreStyle() {
  const tCfgFont& f = m_copie.cfgFont[static_cast<std::size_t>(m_element)];
  QFont q(f.nom.isEmpty() ? QStringLiteral("Arial") : f.nom);
  // The sample in its style, at a size the dialog can hold.
  q.setPointSizeF(std::min(f.taille > 0 ? static_cast<double>(f.taille) : 10.0, 24.0));
  q.setBold(f.gras != 0);
  q.setItalic(f.italique != 0);
  q.setUnderline(f.souligné != 0);
  q.setStrikeOut(f.barrée != 0);
  m_labFont->setFont(q);
  m_labFont->setText(QStringLiteral("%1, %2").arg(f.nom).arg(static_cast<double>(f.taille)));
  QPalette p = m_labFont->palette();
  p.setColor(QPalette::WindowText, qCouleur(f.couleur));
  m_labFont->setPalette(p);
}

void FTabPageSetup::btnRestore_Click() {
  using D = MiseEnPageParDéfaut;
  m_facteur->setValue(static_cast<int>(D::cfgPrintFactor * kDixiemes));
  m_margeGauche->setValue(D::PRN_SET_VIEW_MARGIN_LEFT);
  m_margeHaut->setValue(D::PRN_SET_VIEW_MARGIN_TOP);
  m_cordes->setValue(D::PRN_SET_VIEW_INTER_STRINGS);
  m_note->setValue(D::PRN_SET_VIEW_INTER_NOTE);
  m_mesure->setValue(D::PRN_SET_VIEW_INTER_MESURE);
}

void FTabPageSetup::accept() {
  Settings& s = m_settings;
  s.cfgPrintFactor = static_cast<float>(m_facteur->value()) / kDixiemes;
  s.PRN_SET_VIEW_MARGIN_LEFT = static_cast<i16>(m_margeGauche->value());
  s.PRN_SET_VIEW_MARGIN_TOP = static_cast<i16>(m_margeHaut->value());
  s.PRN_SET_VIEW_INTER_STRINGS = static_cast<i16>(m_cordes->value());
  s.PRN_SET_VIEW_INTER_NOTE = static_cast<i16>(m_note->value());
  s.PRN_SET_VIEW_INTER_MESURE = static_cast<i16>(m_mesure->value());
  s.cfgPrint = m_copie.cfgPrint;
  s.cfgPrintAlign = m_copie.cfgPrintAlign;
  s.cfgFont = m_copie.cfgFont;
  s.cfgPrintNumpage = m_numPage->text();
  s.cfgPrintPortée = toVbool(m_portee->isChecked());
  s.cfgPrintAccords = toVbool(m_accords->isChecked());
  s.cfgPrintNumMesure = toVbool(m_numMesure->isChecked());
  s.cfgPrintTabRythme = toVbool(m_rythme->isChecked());
  s.cfgPrintPortéeSilence = toVbool(m_silences->isChecked());
  s.cfgPrintPortéeSilence1Mesure = toVbool(m_silence1->isChecked());
  QDialog::accept();
}

bool FTabPageSetup::editer(QWidget* parent, const Textes& t, Settings& settings,
                           std::function<void(const QString& page)> aide) {
  FTabPageSetup dialogue(t, settings, parent);
  dialogue.aide = std::move(aide);
  return dialogue.exec() == QDialog::Accepted;
}

}  // namespace vt
