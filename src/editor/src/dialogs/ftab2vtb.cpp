#include "ftab2vtb.h"

#include <QAction>
#include <QActionGroup>
#include <QDialogButtonBox>
#include <QFile>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QToolBar>
#include <QVBoxLayout>
#include <exception>

#include "commun.h"
#include "document/tablature.h"
#include "formats/ascii_import.h"
#include "formats/file_io.h"
#include "shell/icones.h"

namespace vt {

namespace {

struct BoutonRythme {
  const char* clé;
  const char* image;
  int bulle;          // the tool tip: the note value's menu entry
};
// In the order of the rhythm's index, 1 to 7.
constexpr std::array<BoutonRythme, Ftab2vtb::kRythmes> kBoutons{{
    {"ronde", "TB_RONDE", 1357},
    {"blanche", "TB_BLANCHE", 1358},
    {"noire", "TB_NOIRE", 1359},
    {"croche", "TB_CROCHE", 1360},
    {"double", "TB_DOUBLE", 1361},
    {"triple", "TB_TRIPLE", 1362},
    {"quadruple", "TB_QUADRUPLE", 1017},
}};

}  // namespace

Ftab2vtb::Ftab2vtb(const Textes& t, const CatalogueGuitares& catalogue, const tGuitare& guitare,
                   const QString& chemin, CVantoroTablature& doc, OuvreAide aide, QWidget* parent)
    : QDialog(parent),
      m_t(t),
      m_guitare(guitareSixCordes(catalogue, guitare, t.setLang)),
      m_doc(doc),
      m_aide(std::move(aide)),
      m_pageAide(QStringLiteral("files.html#asciiimport")) {
  setObjectName(QStringLiteral("Ftab2vtb"));
  setWindowTitle(t.loadString(1001));
  const FileRead lu = readWholeFile(std::filesystem::path(QFile::encodeName(chemin).toStdString()));
  m_lu = lu.ok();
  if (!m_lu) {
    InterchangeResult r = InterchangeResult::refus(lu.message, lu.détail);
    m_refus = messageRefus(t, r);
    return;
  }
  m_texte.assign(lu.octets.begin(), lu.octets.end());
  // An empty file has nothing to show or to convert: it is said at once.
  if (texteAsciiVide(m_texte)) {
    m_lu = false;
    m_refus = t.loadString(kMsgAsciiVide);
    return;
  }
  construit();
}

QToolBar* Ftab2vtb::barreRythme() {
  auto* barre = new QToolBar(this);
  barre->setObjectName(QStringLiteral("tbRythme"));
  barre->setIconSize(QSize(24, 24));
  auto* groupe = new QActionGroup(barre);
  groupe->setExclusive(true);
  for (std::size_t i = 0; i < kBoutons.size(); ++i) {
    const BoutonRythme& b = kBoutons[i];
    QAction* a = barre->addAction(icôneBouton(QString::fromLatin1(b.image), true), QString());
    a->setObjectName(QStringLiteral("tbRythme_") + QString::fromLatin1(b.clé));
    a->setCheckable(true);
    a->setToolTip(sansAccélérateur(m_t.loadString(b.bulle)));
    groupe->addAction(a);
    m_rythmes[i] = a;
  }
  m_rythmes[kRythmeInitial - 1]->setChecked(true);
  return barre;
}

void Ftab2vtb::construit() {
  auto* colonne = new QVBoxLayout(this);
  auto* ligneRythme = new QHBoxLayout;
  ligneRythme->addWidget(new QLabel(m_t.loadString(1004), this));
  ligneRythme->addWidget(barreRythme());
  ligneRythme->addStretch(1);
  colonne->addLayout(ligneRythme);

  auto* libelléTexte = new QLabel(m_t.loadString(1016), this);
  colonne->addWidget(libelléTexte);
  m_txtTab = new QPlainTextEdit(this);
  m_txtTab->setObjectName(QStringLiteral("txtTab"));
  m_txtTab->setReadOnly(true);
  // Tablature is read in columns: a fixed pitch, and no line folded.
  m_txtTab->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  m_txtTab->setLineWrapMode(QPlainTextEdit::NoWrap);
  m_txtTab->setPlainText(texteExterieur(m_texte));
  const QFontMetrics fm(m_txtTab->font());
  m_txtTab->setMinimumSize(fm.horizontalAdvance(QLatin1Char('-')) * 72, fm.lineSpacing() * 20);
  libelléTexte->setBuddy(m_txtTab);
  colonne->addWidget(m_txtTab, 1);

  m_avancement = std::make_unique<Avancement>(this, colonne);
  m_erreur = ligneErreur(this);
  colonne->addWidget(m_erreur);

  auto* boutons = new QDialogButtonBox(this);
  QPushButton* convertir = boutons->addButton(m_t.loadString(1005), QDialogButtonBox::AcceptRole);
  convertir->setObjectName(QStringLiteral("btnOk"));
  convertir->setDefault(true);
  QPushButton* annuler = boutons->addButton(m_t.loadString(91), QDialogButtonBox::RejectRole);
  annuler->setObjectName(QStringLiteral("btnAnnuler"));
  connect(boutons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(boutons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  if (m_aide) {
    QPushButton* aide = boutons->addButton(m_t.loadString(93), QDialogButtonBox::HelpRole);
    aide->setObjectName(QStringLiteral("btnAide"));
    connect(aide, &QAbstractButton::clicked, this, [this] { m_aide(m_pageAide); });
  }
  colonne->addWidget(boutons);
}

bool Ftab2vtb::importer(QWidget* parent, const Textes& t, const CatalogueGuitares& catalogue,
                        const tGuitare& guitare, const QString& chemin, CVantoroTablature& doc,
                        OuvreAide aide) {
  Ftab2vtb d(t, catalogue, guitare, chemin, doc, std::move(aide), parent);
  if (!d.lu()) {
    QMessageBox::warning(parent, t.loadString(1001), d.refus());
    return false;
  }
  d.exec();
  return d.remplace();
}

QAction* Ftab2vtb::boutonRythme(int index) const {
  return index >= 1 && index <= kRythmes ? m_rythmes[static_cast<std::size_t>(index - 1)] : nullptr;
}

int Ftab2vtb::rythme() const {
  for (int i = 1; i <= kRythmes; ++i)
    if (boutonRythme(i) != nullptr && boutonRythme(i)->isChecked()) return rythmeAscii(i);
  return rythmeAscii(kRythmeInitial);
}

void Ftab2vtb::accept() {
  if (!m_lu) return;
  montreErreur(m_erreur, QString(), nullptr);
  AsciiImportOptions o;
  o.rythme = rythme();
  o.guitare = m_guitare;
  // The work goes into a document of its own: the one shown stays whole
  // until the conversion has succeeded.
  CVantoroTablature nouveau(m_guitare);
  int pas = 0;
  const auto étape = [this, &pas](int id) {
    m_avancement->étape(m_t, id);
    m_avancement->position(static_cast<std::size_t>(pas++), 2);
  };
  InterchangeResult r;
  try {
    r = convertirAscii(m_texte, o, nouveau, étape);
  } catch (const std::exception&) {
    r = InterchangeResult::refus(kMsgAsciiCorrompue);
  }
  if (!r.ok()) {
    m_avancement->efface();
    montreErreur(m_erreur, messageRefus(m_t, r), nullptr);
    m_pageAide = QStringLiteral("files.html#corrupted");
    return;
  }
  nouveau.modifi = kVrai;
  m_doc = std::move(nouveau);
  m_remplace = true;
  QDialog::accept();
}

}  // namespace vt
