#include "ftab_drums.h"

#include <QAction>
#include <QHBoxLayout>
#include <QMenu>
#include <QToolButton>

#include "batterie.h"

namespace vt {

fTabDrums::fTabDrums(const Textes& t, QWidget* parent) : QWidget(parent, Qt::Tool), m_t(t) {
  setObjectName(QStringLiteral("fTabDrums"));
  auto* rangée = new QHBoxLayout(this);
  rangée->setContentsMargins(4, 4, 4, 4);
  rangée->setSpacing(2);
  const auto& familles = famillesBatterie();
  for (std::size_t f = 0; f < familles.size(); ++f) {
    const FamilleBatterie& famille = familles[f];
    auto* b = new QToolButton(this);
    b->setObjectName(QString::fromLatin1(famille.bouton));
    b->setPopupMode(QToolButton::MenuButtonPopup);
    b->setToolButtonStyle(Qt::ToolButtonTextOnly);
    auto* menu = new QMenu(b);
    for (int note : famille.notes) {
      QAction* a = menu->addAction(QString());
      a->setObjectName(QStringLiteral("drum%1").arg(note));
      a->setData(note);
      connect(a, &QAction::triggered, this,
              [this, f, note] { choisit(static_cast<int>(f), note); });
    }
    b->setMenu(menu);
    connect(b, &QToolButton::clicked, this,
            [this, f] { choisit(static_cast<int>(f), m_courantes[f]); });
    m_boutons[f] = b;
    m_courantes[f] = famille.parDefaut;
    rangée->addWidget(b);
  }
  load_lang(t);
}

void fTabDrums::load_lang(const Textes& t) {
  m_t = t;
  setWindowTitle(t.loadString(2549));
  const auto& familles = famillesBatterie();
  for (std::size_t f = 0; f < familles.size(); ++f) {
    QToolButton* b = m_boutons[f];
    b->setText(t.loadString(familles[f].libelle.id));
    for (QAction* a : b->menu()->actions())
      a->setText(t.loadString(libelleBatterie(a->data().toInt())));
    b->setToolTip(t.loadString(libelleBatterie(m_courantes[f])));
  }
  adjustSize();
}

void fTabDrums::choisit(int famille, int note) {
  const auto f = static_cast<std::size_t>(famille);
  m_courantes[f] = note;
  m_boutons[f]->setToolTip(m_t.loadString(libelleBatterie(note)));
  m_note = note;
  emit drumChoisi(note);
}

}  // namespace vt
