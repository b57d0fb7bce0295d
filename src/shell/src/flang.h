// FLang: the choice of the language at the first start, before the main
// window shows. The running language is changed from the File menu instead.
#pragma once

#include <QDialog>
#include <array>

#include "document/types.h"

class QRadioButton;

namespace vt {

class FLang : public QDialog {
  Q_OBJECT

 public:
  explicit FLang(QWidget* parent = nullptr);

  // Shows the dialog modally: 0 for French, 10000 for English.
  static i16 getLang();

  // The language chosen now.
  i16 choix() const;
  QRadioButton* optLang(int i) const { return i == 0 ? m_fr : m_en; }

 protected:
  bool eventFilter(QObject* o, QEvent* e) override;

 private:
  std::array<QObject*, 2> m_drapeaux{};
  QRadioButton* m_fr;
  QRadioButton* m_en;
};

}  // namespace vt
