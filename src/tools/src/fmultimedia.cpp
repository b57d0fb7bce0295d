#include "tools/fmultimedia.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QListView>
#include <QMessageBox>
#include <QPushButton>
#include <QSlider>
#include <QStackedWidget>
#include <QStorageInfo>
#include <QStringListModel>
#include <QTreeView>
#include <QVBoxLayout>
#include <QVideoWidget>

#include "controls/picture_button.h"
#include "disque_audio.h"
#include "habillage_outil.h"
#include "lecteur_mci.h"
#include "shell/vt.h"

namespace vt {

namespace {

constexpr int kImageArrêté = 21;     // "tuner0017": shows play
constexpr int kImageEnLecture = 22;  // "tuner0000": shows stop
constexpr int kPremierType = 1907;
constexpr int kNbrTypes = 4;
const QString kDisque = QStringLiteral("disc:");

QString temps(qint64 ms) {
  if (ms < 0) ms = 0;
  return QStringLiteral("%1:%2.%3")
      .arg(ms / 60000)
      .arg((ms / 1000) % 60, 2, 10, QLatin1Char('0'))
      .arg((ms / 100) % 10);
}

// "Audio files (*.wav *.mp3)" gives {"*.wav", "*.mp3"}.
QStringList motifs(const QString& texte) {
  const qsizetype a = texte.lastIndexOf(QLatin1Char('('));
  const qsizetype b = texte.lastIndexOf(QLatin1Char(')'));
  if (a < 0 || b <= a) return {QStringLiteral("*")};
  return texte.mid(a + 1, b - a - 1).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

}  // namespace

FMultimedia::FMultimedia(VT& vt, QWidget* parent)
    : QWidget(parent), m_vt(vt), m_lecteur(std::make_unique<LecteurMci>()) {
  message = [this](const QString& texte) {
    QMessageBox::warning(this, m_vt.loadString(1900), texte);
  };
  construit();
  load_skin();
  load_lang();

  connect(m_lecteur.get(), &LecteurMci::erreur, this, [this](const QString& texte) {
    m_joue = false;
    montreEtat();
    message(m_vt.loadString(1911) + texte);
  });
  connect(m_lecteur.get(), &LecteurMci::fin, this, [this] { arrêtéParLeLecteur(); });
  QMediaPlayer& p = m_lecteur->player();
  connect(&p, &QMediaPlayer::durationChanged, this, [this](qint64 d) {
    m_position->setRange(0, static_cast<int>(std::min<qint64>(d, INT_MAX)));
    montreTemps();
  });
  connect(&p, &QMediaPlayer::positionChanged, this, [this](qint64 pos) {
    if (!m_glisse) m_position->setValue(static_cast<int>(std::min<qint64>(pos, INT_MAX)));
    montreTemps();
  });
  connect(&p, &QMediaPlayer::hasVideoChanged, this,
          [this](bool vidéo) { m_écran->setCurrentIndex(vidéo ? 1 : 0); });

  // The drive and folder of the last time.
  remplitLecteurs();
  int lecteur = m_cmbLecteur->findData(vt.settings().mciDrive);
  if (lecteur < 0) {
    const QString dossier = vt.settings().mciPath;
    lecteur =
        m_cmbLecteur->findData(QDir(dossier).exists() ? QStorageInfo(dossier).rootPath()
                                                      : QStorageInfo(QDir::homePath()).rootPath());
  }
  m_cmbLecteur->setCurrentIndex(std::max(lecteur, 0));
  Lecteur_Change(m_cmbLecteur->currentIndex());
}

FMultimedia::~FMultimedia() {
  m_lecteur->MCIStop();
  m_lecteur->MCIClose();
}

void FMultimedia::construit() {
  resize(780, 460);
  auto* rangée = new QHBoxLayout(this);

  auto* gauche = new QVBoxLayout;
  m_labLecteur = new QLabel(this);
  m_cmbLecteur = new QComboBox(this);
  m_cmbLecteur->setObjectName(QStringLiteral("Lecteur"));
  m_labRépertoire = new QLabel(this);
  m_modèleDossiers = new QFileSystemModel(this);
  m_modèleDossiers->setFilter(QDir::AllDirs | QDir::NoDotAndDotDot | QDir::Drives);
  m_répertoire = new QTreeView(this);
  m_répertoire->setObjectName(QStringLiteral("Repertoire"));
  m_répertoire->setModel(m_modèleDossiers);
  for (int c = 1; c < 4; ++c)
    m_répertoire->hideColumn(c);
  m_répertoire->header()->hide();
  m_labFichier = new QLabel(this);
  m_modèleFichiers = new QFileSystemModel(this);
  m_modèleFichiers->setFilter(QDir::Files);
  m_modèleFichiers->setNameFilterDisables(false);
  m_modèlePistes = new QStringListModel(this);
  m_fichier = new QListView(this);
  m_fichier->setObjectName(QStringLiteral("Fichier"));
  m_fichier->setModel(m_modèleFichiers);
  m_labType = new QLabel(this);
  m_type = new QComboBox(this);
  m_type->setObjectName(QStringLiteral("combFileType"));
  for (QLabel* l : {m_labLecteur, m_labRépertoire, m_labFichier, m_labType})
    l->setStyleSheet(QStringLiteral("font-weight: bold;"));
  gauche->addWidget(m_labLecteur);
  gauche->addWidget(m_cmbLecteur);
  gauche->addWidget(m_labRépertoire);
  gauche->addWidget(m_répertoire, 3);
  gauche->addWidget(m_labFichier);
  gauche->addWidget(m_fichier, 4);
  gauche->addWidget(m_labType);
  gauche->addWidget(m_type);
  rangée->addLayout(gauche, 2);

  auto* droite = new QVBoxLayout;
  m_écran = new QStackedWidget(this);
  m_titre = new QLabel(this);
  m_titre->setAlignment(Qt::AlignCenter);
  m_titre->setWordWrap(true);
  m_titre->setStyleSheet(
      QStringLiteral("background: #241A13; color: #F3E6C8; font-size: 14pt; font-weight: bold;"));
  m_vidéo = new QVideoWidget(this);
  m_vidéo->setStyleSheet(QStringLiteral("background: black;"));
  m_écran->addWidget(m_titre);
  m_écran->addWidget(m_vidéo);
  m_lecteur->setSortieVideo(m_vidéo);
  droite->addWidget(m_écran, 1);

  auto* ligneTemps = new QHBoxLayout;
  m_position = new QSlider(Qt::Horizontal, this);
  m_position->setObjectName(QStringLiteral("sldPosition"));
  m_temps = new QLabel(this);
  m_temps->setMinimumWidth(120);
  m_temps->setText(temps(0) + QStringLiteral(" / ") + temps(0));
  m_temps->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  ligneTemps->addWidget(m_position, 1);
  ligneTemps->addWidget(m_temps);
  droite->addLayout(ligneTemps);

  auto* commandes = new QHBoxLayout;
  m_btnStart = new VTPictureButton(this);
  m_btnStart->setObjectName(QStringLiteral("btnStart"));
  m_btnStart->setFixedSize(48, 48);
  commandes->addWidget(m_btnStart);
  commandes->addSpacing(12);
  m_labVitesse = new QLabel(this);
  m_labVitesse->setMinimumWidth(110);
  m_vitesse = new QSlider(Qt::Horizontal, this);
  m_vitesse->setObjectName(QStringLiteral("sldVitesse"));
  m_vitesse->setRange(50, 100);
  m_vitesse->setSingleStep(5);
  m_vitesse->setPageStep(10);
  m_vitesse->setTickInterval(10);
  m_vitesse->setTickPosition(QSlider::TicksBelow);
  m_vitesse->setValue(100);
  commandes->addWidget(m_labVitesse);
  commandes->addWidget(m_vitesse, 1);
  commandes->addSpacing(12);
  m_btnA = new QPushButton(QStringLiteral("A"), this);
  m_btnB = new QPushButton(QStringLiteral("B"), this);
  m_btnSansBoucle = new QPushButton(QStringLiteral("×"), this);
  for (QPushButton* b : {m_btnA, m_btnB, m_btnSansBoucle}) {
    b->setFixedWidth(34);
    commandes->addWidget(b);
  }
  m_btnA->setObjectName(QStringLiteral("btnA"));
  m_btnB->setObjectName(QStringLiteral("btnB"));
  m_labBoucle = new QLabel(this);
  m_labBoucle->setObjectName(QStringLiteral("labBoucle"));
  m_labBoucle->setMinimumWidth(150);
  commandes->addWidget(m_labBoucle);
  droite->addLayout(commandes);
  rangée->addLayout(droite, 5);

  connect(m_cmbLecteur, &QComboBox::activated, this, &FMultimedia::Lecteur_Change);
  // The folders load in the background: the one chosen is shown once it is there.
  connect(m_modèleDossiers, &QFileSystemModel::directoryLoaded, this, [this] {
    if (m_dossierAMontrer) montreDossier();
  });
  connect(m_répertoire, &QTreeView::clicked, this,
          [this](const QModelIndex& i) { Repertoire_Change(m_modèleDossiers->filePath(i)); });
  connect(m_type, &QComboBox::activated, this, &FMultimedia::combFileType_Change);
  connect(m_fichier, &QListView::doubleClicked, this, [this] {
    if (m_joue) btnStart_Click();
    btnStart_Click();
  });
  connect(m_btnStart, &VTPictureButton::Click, this, &FMultimedia::btnStart_Click);
  connect(m_vitesse, &QSlider::valueChanged, this, &FMultimedia::setVitesse);
  connect(m_btnA, &QPushButton::clicked, this, &FMultimedia::marqueA);
  connect(m_btnB, &QPushButton::clicked, this, &FMultimedia::marqueB);
  connect(m_btnSansBoucle, &QPushButton::clicked, this, &FMultimedia::effaceBoucle);
  connect(m_position, &QSlider::sliderPressed, this, [this] { m_glisse = true; });
  connect(m_position, &QSlider::sliderReleased, this, [this] {
    m_glisse = false;
    m_lecteur->player().setPosition(m_position->value());
  });
}

// ---- Texts and pictures ----------------------------------------------------------------

void FMultimedia::load_lang() {
  m_vt.setStatusText(0);
  setWindowTitle(m_vt.loadString(1900));
  m_labLecteur->setText(m_vt.loadString(1901));
  m_labRépertoire->setText(m_vt.loadString(1902));
  m_labFichier->setText(m_vt.loadString(1903));
  m_labType->setText(m_vt.loadString(1904));
  const int type = std::max(m_type->currentIndex(), 0);
  m_type->clear();
  for (int i = 0; i < kNbrTypes; ++i)
    m_type->addItem(m_vt.loadString(kPremierType + i));
  m_type->setCurrentIndex(type);
  combFileType_Change(type);
  m_btnA->setToolTip(m_vt.loadString(1915));
  m_btnB->setToolTip(m_vt.loadString(1916));
  m_btnSansBoucle->setToolTip(m_vt.loadString(1917));
  m_position->setToolTip(m_vt.loadString(1923));
  m_vitesse->setToolTip(m_vt.loadString(1924));
  if (m_cmbLecteur->count() > 0) remplitLecteurs();
  setVitesse(m_vitesse->value());
  montreEtat();
  montreBoucle();
  if (m_titre->text().isEmpty() || !m_joue) m_titre->setText(m_vt.loadString(1925));
}

void FMultimedia::load_skin() {
  montreEtat();
}

void FMultimedia::montreEtat() {
  const int image = m_joue ? kImageEnLecture : kImageArrêté;
  habilleBouton(m_btnStart, m_vt, {image, image, nullptr});
  m_btnStart->setToolTip(m_vt.loadString(m_joue ? 1906 : 1905));
}

// ---- The lists ---------------------------------------------------------------------------

void FMultimedia::remplitLecteurs() {
  const QVariant choisi = m_cmbLecteur->currentData();
  m_cmbLecteur->clear();
  for (const QStorageInfo& v : QStorageInfo::mountedVolumes()) {
    if (!v.isValid() || !v.isReady()) continue;
    const QString racine = v.rootPath();
    if (racine.startsWith(QStringLiteral("/proc")) || racine.startsWith(QStringLiteral("/sys")) ||
        racine.startsWith(QStringLiteral("/dev")) || racine.startsWith(QStringLiteral("/run")))
      continue;
    const QString nom = v.displayName() == racine
                            ? racine
                            : v.displayName() + QStringLiteral(" (") + racine + QLatin1Char(')');
    m_cmbLecteur->addItem(nom, racine);
  }
  for (const QString& disque : lecteursDisque())
    m_cmbLecteur->addItem(m_vt.loadString(1918).arg(QFileInfo(disque).fileName()),
                          kDisque + disque);
  const int i = m_cmbLecteur->findData(choisi);
  if (i >= 0) m_cmbLecteur->setCurrentIndex(i);
}

void FMultimedia::Lecteur_Change(int index) {
  const QString donnée = m_cmbLecteur->itemData(index).toString();
  if (donnée.isEmpty()) return;
  m_vt.settings().mciDrive = donnée;
  if (donnée.startsWith(kDisque)) {
    m_disque = donnée.mid(kDisque.size());
    const int n = pistesDuDisque(m_disque);
    QStringList pistes;
    for (int p = 1; p <= n; ++p)
      pistes << m_vt.loadString(1919).arg(p);
    m_modèlePistes->setStringList(pistes);
    m_fichier->setModel(m_modèlePistes);
    if (n < 0) message(m_vt.loadString(1920).arg(m_disque));
    return;
  }
  m_disque.clear();
  m_modèleDossiers->setRootPath(donnée);
  m_répertoire->setRootIndex(m_modèleDossiers->index(donnée));
  const QString dernier = m_vt.settings().mciPath;
  const bool dedans =
      !dernier.isEmpty() && QDir(dernier).exists() && QStorageInfo(dernier).rootPath() == donnée;
  Repertoire_Change(
      dedans ? dernier
             : (QStorageInfo(QDir::homePath()).rootPath() == donnée ? QDir::homePath() : donnée));
}

void FMultimedia::Repertoire_Change(const QString& dossier) {
  if (dossier.isEmpty()) return;
  m_disque.clear();
  m_vt.settings().mciPath = dossier;
  if (m_fichier->model() != m_modèleFichiers) m_fichier->setModel(m_modèleFichiers);
  m_modèleFichiers->setRootPath(dossier);
  m_fichier->setRootIndex(m_modèleFichiers->index(dossier));
  m_dossierAMontrer = true;
  montreDossier();
}

// The chosen folder in the tree, its parents opened; until the tree has
// loaded as far as it, again as each folder comes in.
void FMultimedia::montreDossier() {
  const QModelIndex i = m_modèleDossiers->index(m_vt.settings().mciPath);
  if (!i.isValid()) return;
  for (QModelIndex p = i.parent(); p.isValid(); p = p.parent())
    m_répertoire->expand(p);
  if (m_répertoire->currentIndex() != i) m_répertoire->setCurrentIndex(i);
  m_répertoire->scrollTo(i);
  m_dossierAMontrer = !m_répertoire->visualRect(i).isValid();
}

void FMultimedia::combFileType_Change(int index) {
  if (index < 0 || index >= m_type->count()) return;
  m_modèleFichiers->setNameFilters(motifs(m_type->itemText(index)));
}

bool FMultimedia::choisitFichier(const QString& chemin) {
  const QFileInfo f(chemin);
  // A file the type filter hides cannot be chosen in the list either.
  if (!f.isFile() || !QDir::match(m_modèleFichiers->nameFilters(), f.fileName())) return false;
  const int lecteur = m_cmbLecteur->findData(QStorageInfo(f.absolutePath()).rootPath());
  if (lecteur >= 0 && lecteur != m_cmbLecteur->currentIndex()) {
    m_cmbLecteur->setCurrentIndex(lecteur);
    m_vt.settings().mciDrive = m_cmbLecteur->itemData(lecteur).toString();
  }
  Repertoire_Change(f.absolutePath());
  const QModelIndex i = m_modèleFichiers->index(f.absoluteFilePath());
  if (!i.isValid()) return false;
  m_fichier->setCurrentIndex(i);
  return true;
}

QUrl FMultimedia::choix() const {
  const QModelIndex i = m_fichier->currentIndex();
  if (!i.isValid()) return {};
  if (!m_disque.isEmpty()) return adressePiste(m_disque, i.row() + 1);
  return QUrl::fromLocalFile(m_modèleFichiers->filePath(i));
}

// ---- Playing -------------------------------------------------------------------------

void FMultimedia::btnStart_Click() {
  if (m_joue) {
    m_lecteur->MCIStop();
    m_joue = false;
    montreEtat();
    return;
  }
  const QUrl média = choix();
  if (média.isEmpty()) return;
  m_lecteur->MCIClose();
  m_lecteur->setCommande(média);
  m_titre->setText(média.isLocalFile() ? QFileInfo(média.toLocalFile()).fileName()
                                       : m_fichier->currentIndex().data().toString());
  m_écran->setCurrentIndex(0);
  m_joue = true;
  montreEtat();
  m_lecteur->MCIOpen();
  if (m_joue) m_lecteur->MCIPlay();
  montreBoucle();
  // Said once, while the media goes on (a video is still seen).
  if (!m_sansSortieDit && !LecteurMci::sortieAudioDisponible()) {
    m_sansSortieDit = true;
    message(m_vt.loadString(1921));
  }
}

void FMultimedia::arrêtéParLeLecteur() {
  m_joue = false;
  montreEtat();
}

void FMultimedia::setVitesse(int pourcent) {
  pourcent = std::clamp(pourcent, 50, 100);
  if (m_vitesse->value() != pourcent) m_vitesse->setValue(pourcent);
  m_lecteur->setVitesse(pourcent / 100.0);
  m_labVitesse->setText(m_vt.loadString(1912).arg(pourcent));
}

void FMultimedia::marqueA() {
  m_lecteur->setBoucleA(m_lecteur->player().position());
  montreBoucle();
}

void FMultimedia::marqueB() {
  m_lecteur->setBoucleB(m_lecteur->player().position());
  montreBoucle();
}

void FMultimedia::effaceBoucle() {
  m_lecteur->effaceBoucle();
  montreBoucle();
}

void FMultimedia::montreBoucle() {
  const qint64 a = m_lecteur->boucleA(), b = m_lecteur->boucleB();
  if (a < 0) {
    m_labBoucle->setText(m_vt.loadString(1917));
  } else {
    m_labBoucle->setText(
        QStringLiteral("A %1 → B %2").arg(temps(a), b >= 0 ? temps(b) : QStringLiteral("…")));
  }
}

void FMultimedia::montreTemps() {
  m_temps->setText(temps(m_lecteur->player().position()) + QStringLiteral(" / ") +
                   temps(m_lecteur->player().duration()));
}

void FMultimedia::closeEvent(QCloseEvent* e) {
  m_lecteur->MCIStop();
  m_lecteur->MCIClose();
  m_joue = false;
  e->accept();
}

}  // namespace vt
