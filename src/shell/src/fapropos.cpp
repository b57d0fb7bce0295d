#include "fapropos.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "shell/skin.h"
#include "shell/textes.h"
#include "shell/vt.h"

namespace vt {

FApropos::FApropos(VT& vt) : QDialog(&vt) {
  setObjectName(QStringLiteral("FApropos"));
  setWindowTitle(sansAccélérateur(vt.loadString(34)).remove(QStringLiteral("...")));
  auto* pile = new QVBoxLayout(this);
  auto* image = new QLabel(this);
  image->setPixmap(QPixmap(vt.skinFile(skin::kApropos)));
  image->setAlignment(Qt::AlignCenter);
  pile->addWidget(image);

  auto* nom = new QLabel(QStringLiteral("Vantoro"), this);
  QFont f = nom->font();
  f.setBold(true);
  f.setPointSizeF(f.pointSizeF() * 1.6);
  nom->setFont(f);
  nom->setAlignment(Qt::AlignCenter);
  pile->addWidget(nom);

  auto* version = new QLabel(vt.loadString(35) + QStringLiteral(VT_VERSION_TEXTE), this);
  version->setAlignment(Qt::AlignCenter);
  pile->addWidget(version);

  auto* description = new QLabel(vt.loadString(36), this);
  description->setWordWrap(true);
  description->setAlignment(Qt::AlignCenter);
  pile->addWidget(description);

  auto* boutons = new QDialogButtonBox(this);
  QPushButton* ok = boutons->addButton(vt.loadString(90), QDialogButtonBox::AcceptRole);
  ok->setDefault(true);
  connect(boutons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  pile->addWidget(boutons);
  setFixedWidth(440);
}

}  // namespace vt
