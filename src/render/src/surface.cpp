// The picture-box methods common to every backend: they keep the current
// point and hand one primitive to the backend.
#include "render/surface.h"

namespace vt {

void Surface::Line(double x1, double y1, double x2, double y2, LineForm form) {
  switch (form) {
    case LineForm::Segment: drawSegment(x1, y1, x2, y2); break;
    case LineForm::Box: drawBox(x1, y1, x2, y2, false); break;
    case LineForm::FilledBox: drawBox(x1, y1, x2, y2, true); break;
  }
  m_currentX = x2;
  m_currentY = y2;
}

void Surface::LineStep(double x1, double y1, double dx, double dy, LineForm form) {
  Line(x1, y1, x1 + dx, y1 + dy, form);
}

void Surface::LineStepOn(double dx, double dy) {
  Line(m_currentX, m_currentY, m_currentX + dx, m_currentY + dy);
}

void Surface::LineOn(double x2, double y2) { Line(m_currentX, m_currentY, x2, y2); }

void Surface::Circle(double x, double y, double rayon) {
  drawCircle(x, y, rayon);
  m_currentX = x;
  m_currentY = y;
}

void Surface::Print(std::string_view texte) {
  const int largeur = TextWidth(texte);
  const int hauteur = TextHeight(texte);
  drawText(m_currentX, m_currentY, texte, largeur, hauteur);
  m_currentX += largeur;
}

void Surface::Cls() {
  clear();
  m_currentX = 0;
  m_currentY = 0;
}

void Surface::LineTo(int x, int y) {
  drawDeviceLine(m_gdiX, m_gdiY, x, y);
  m_gdiX = x;
  m_gdiY = y;
}

}  // namespace vt
