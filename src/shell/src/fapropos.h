// FApropos, the About box: the skin's picture, the version, what the program is.
#pragma once

#include <QDialog>

namespace vt {

class VT;

class FApropos : public QDialog {
  Q_OBJECT

 public:
  explicit FApropos(VT& vt);
};

}  // namespace vt
