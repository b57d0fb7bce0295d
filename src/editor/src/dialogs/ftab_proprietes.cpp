#include "ftab_proprietes.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFontMetrics>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSpinBox>
#include <QTabWidget>
#include <QVBoxLayout>

#include "commun.h"
#include "document/tablature.h"
#include "onglet_pistes.h"
#include "texte_document.h"

namespace vt {

namespace {

// Comments keep their line breaks as they are typed; the others are one line.
QString commentaireDepuisDocument(const std::string& cp1252) {
  QString t = depuisDocument(cp1252);
  t.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  return t;
}

}  // namespace

FTabProprietes::FTabProprietes(const Textes& t, const CatalogueGuitares& catalogue,
                               const tGuitare& courant, CVantoroTablature& doc, Onglet onglet,
                               int piste, QWidget* parent)
    : QDialog(parent), m_t(t), m_doc(doc) {
  setObjectName(QStringLiteral("FTabProprietes"));
  setWindowTitle(t.loadString(500));
  auto* colonne = new QVBoxLayout(this);
  m_onglets = new QTabWidget(this);
  m_onglets->setObjectName(QStringLiteral("onglets"));
  colonne->addWidget(m_onglets);

  auto* morceau = new QWidget(m_onglets);
  morceau->setObjectName(QStringLiteral("ongletMorceau"));
  auto* grille = new QFormLayout(morceau);
  grille->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
  const struct {
    const char* nom;
    int libelle;
    std::string* valeur;
  } lignes[] = {{"txtTitre", 503, &doc.titre},
                {"txtSousTitre", 504, &doc.SousTitre},
                {"txtAuteur", 505, &doc.Auteur},
                {"txtCopy", 506, &doc.Copy}};
  for (const auto& l : lignes) {
    auto* e = new QLineEdit(morceau);
    e->setObjectName(QString::fromLatin1(l.nom));
    e->setMaxLength(kMaxTexte);
    const QString initial = depuisDocument(*l.valeur);
    e->setText(initial);
    auto* libellé = new QLabel(t.loadString(l.libelle), morceau);
    libellé->setBuddy(e);
    grille->addRow(libellé, e);
    m_textes.push_back({e, libellé, l.valeur, initial});
  }
  auto* commentaires = new QPlainTextEdit(morceau);
  commentaires->setObjectName(QStringLiteral("txtComments"));
  commentaires->setTabChangesFocus(true);
  const QString initial = commentaireDepuisDocument(doc.Comments);
  commentaires->setPlainText(initial);
  // The comments take the height the tracks tab leaves over.
  commentaires->setMinimumHeight(QFontMetrics(commentaires->font()).lineSpacing() * 4 + 12);
  auto* libelléCommentaires = new QLabel(t.loadString(507), morceau);
  libelléCommentaires->setBuddy(commentaires);
  grille->addRow(libelléCommentaires, commentaires);
  m_textes.push_back({commentaires, libelléCommentaires, &doc.Comments, initial});

  m_tempo = new QSpinBox(morceau);
  m_tempo->setObjectName(QStringLiteral("udTempo"));
  m_tempo->setRange(1, 255);
  m_tempo->setValue(doc.tempo);
  auto* libelléTempo = new QLabel(t.loadString(508), morceau);
  libelléTempo->setBuddy(m_tempo);
  grille->addRow(libelléTempo, m_tempo);
  m_tripleFeel = new QCheckBox(t.loadString(509), morceau);
  m_tripleFeel->setObjectName(QStringLiteral("chkTripleFeel"));
  m_tripleFeel->setChecked(doc.TripleFeel() != kFaux);
  grille->addRow(QString(), m_tripleFeel);
  m_onglets->addTab(morceau, t.loadString(501));

  m_pistes = new OngletPistes(t, catalogue, courant, doc, piste, m_onglets);
  m_onglets->addTab(m_pistes, t.loadString(502));
  m_onglets->setCurrentIndex(static_cast<int>(onglet));

  m_erreur = ligneErreur(this);
  colonne->addWidget(m_erreur);
  colonne->addWidget(boutonsOkAnnuler(this, t));
}

bool FTabProprietes::editer(QWidget* parent, const Textes& t, const CatalogueGuitares& catalogue,
                            const tGuitare& courant, CVantoroTablature& doc, Onglet onglet,
                            int piste) {
  FTabProprietes d(t, catalogue, courant, doc, onglet, piste, parent);
  d.exec();
  return d.modifie();
}

QString FTabProprietes::texteDe(const ChampTexte& c) const {
  if (auto* e = qobject_cast<QLineEdit*>(c.champ)) return e->text();
  return static_cast<QPlainTextEdit*>(c.champ)->toPlainText();
}

bool FTabProprietes::verifie() {
  for (const ChampTexte& c : m_textes) {
    const QString texte = texteDe(c);
    const QString refus =
        refusTexte(m_t, nomDeChamp(c.libelle->text()), texte, versDocument(texte));
    if (!refus.isEmpty()) {
      m_onglets->setCurrentIndex(static_cast<int>(Onglet::Morceau));
      montreErreur(m_erreur, refus, c.champ);
      return false;
    }
  }
  const auto& pistes = m_pistes->reglages();
  for (std::size_t i = 0; i < pistes.size(); ++i) {
    const QString refus = refusTexte(m_t, nomDeChamp(m_pistes->libelleNom()), pistes[i].nom,
                                     versDocument(pistes[i].nom));
    if (!refus.isEmpty()) {
      m_onglets->setCurrentIndex(static_cast<int>(Onglet::Pistes));
      m_pistes->choisitPiste(static_cast<int>(i) + 1);
      montreErreur(m_erreur,
                   m_t.loadString(5130) + QString::number(i + 1) + QStringLiteral(" : ") + refus,
                   m_pistes->champNom());
      return false;
    }
  }
  return true;
}

void FTabProprietes::accept() {
  if (!verifie()) return;

  // Tracks first, each after its own snapshot, the cursor's track last so
  // that a first undo brings it back.
  const auto& avant = m_pistes->initiaux();
  const auto& apres = m_pistes->reglages();
  const int curseur = m_doc.CurseurPiste();
  std::vector<int> ordre;
  for (int p = 1; p <= static_cast<int>(apres.size()); ++p)
    if (p != curseur) ordre.push_back(p);
  if (curseur >= 1 && curseur <= static_cast<int>(apres.size())) ordre.push_back(curseur);
  for (int p : ordre) {
    const auto i = static_cast<std::size_t>(p - 1);
    if (avant[i] == apres[i]) continue;
    storeUndoPiste(m_doc, p);
    m_modifie = ecrireReglages(m_doc, p, avant[i], apres[i]) || m_modifie;
  }

  // The piece's own fields are outside the undo snapshots; a change of them
  // alone still leaves one, as every command does.
  bool morceau = false;
  for (const ChampTexte& c : m_textes)
    morceau = morceau || texteDe(c) != c.initial;
  morceau = morceau || m_tempo->value() != m_doc.tempo ||
            m_tripleFeel->isChecked() != (m_doc.TripleFeel() != kFaux);
  if (morceau) {
    if (!m_modifie) m_doc.storeUndo(true);
    for (const ChampTexte& c : m_textes)
      if (texteDe(c) != c.initial) *c.valeur = versDocument(texteDe(c));
    m_doc.tempo = static_cast<byt>(m_tempo->value());
    m_doc.setTripleFeel(toVbool(m_tripleFeel->isChecked()));
    m_modifie = true;
  }
  if (m_modifie) m_doc.modifi = kVrai;
  QDialog::accept();
}

}  // namespace vt
