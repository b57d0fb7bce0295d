// A panel of the main window's status bar: a label that answers a double-click.
#pragma once

#include <QLabel>

namespace vt {

class PanneauStatut : public QLabel {
  Q_OBJECT

 public:
  PanneauStatut(const QString& clé, QWidget* parent) : QLabel(parent) {
    setObjectName(clé);
    setAlignment(Qt::AlignCenter);
    setMargin(2);
  }

 signals:
  void doubleClic();

 protected:
  void mouseDoubleClickEvent(QMouseEvent*) override { emit doubleClic(); }
};

}  // namespace vt
