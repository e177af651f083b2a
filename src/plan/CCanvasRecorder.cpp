#include "plan/CCanvasRecorder.h"

namespace kavrin {

void CCanvasRecorder::Record(Op op, std::initializer_list<double> numbers, bool filled) {
    ops_.push_back({op, filled, 0, numbers_.size(), 0, 0, -1});
    numbers_.insert(numbers_.end(), numbers);
}

void CCanvasRecorder::RecordPoints(Op op, const double* xs, const double* ys, int n, bool filled) {
    if (n <= 0)
        return;
    ops_.push_back({op, filled, n, numbers_.size(), 0, 0, -1});
    numbers_.insert(numbers_.end(), xs, xs + n);
    numbers_.insert(numbers_.end(), ys, ys + n);
}

void CCanvasRecorder::RecordText(Op op, double x, double y, std::string_view text, uint32_t color,
                                 uint32_t halo, int dx, int dy) {
    ops_.push_back({op, false, 0, numbers_.size(), color, halo, static_cast<int>(texts_.size())});
    numbers_.insert(numbers_.end(), {x, y, static_cast<double>(dx), static_cast<double>(dy)});
    texts_.emplace_back(text);
}

void CCanvasRecorder::SetPen(uint32_t color, double widthPx) {
    Record(Op::Pen, {widthPx});
    ops_.back().color = color;
}

void CCanvasRecorder::Line(double x1, double y1, double x2, double y2) {
    Record(Op::Line, {x1, y1, x2, y2});
}

void CCanvasRecorder::Polyline(const double* xs, const double* ys, int n) {
    RecordPoints(Op::Polyline, xs, ys, n, false);
}

void CCanvasRecorder::Circle(double x, double y, double radiusPx, bool filled) {
    Record(Op::Circle, {x, y, radiusPx}, filled);
}

void CCanvasRecorder::Square(double x, double y, double halfPx, bool filled) {
    Record(Op::Square, {x, y, halfPx}, filled);
}

void CCanvasRecorder::TurnedSquare(double x, double y, double halfPx, double dx, double dy, bool filled) {
    Record(Op::TurnedSquare, {x, y, halfPx, dx, dy}, filled);
}

void CCanvasRecorder::Triangle(double x, double y, double dx, double dy, double sizePx, bool filled) {
    Record(Op::Triangle, {x, y, dx, dy, sizePx}, filled);
}

void CCanvasRecorder::Polygon(const double* xs, const double* ys, int n, bool filled) {
    RecordPoints(Op::Polygon, xs, ys, n, filled);
}

void CCanvasRecorder::Text(double x, double y, std::string_view text, uint32_t color, int dxPx, int dyPx) {
    RecordText(Op::Text, x, y, text, color, 0, dxPx, dyPx);
}

void CCanvasRecorder::Label(double x, double y, std::string_view text, uint32_t color, uint32_t halo,
                            int dxPx, int dyPx) {
    RecordText(Op::Label, x, y, text, color, halo, dxPx, dyPx);
}

void CCanvasRecorder::Replay(Canvas& canvas) {
    for (const Entry& e : ops_) {
        const double* v = numbers_.data() + e.first;
        switch (e.op) {
        case Op::Pen:
            canvas.SetPen(e.color, v[0]);
            break;
        case Op::Line:
            canvas.Line(v[0], v[1], v[2], v[3]);
            break;
        case Op::Polyline:
            canvas.Polyline(v, v + e.count, e.count);
            break;
        case Op::Polygon:
            canvas.Polygon(v, v + e.count, e.count, e.filled);
            break;
        case Op::Circle:
            canvas.Circle(v[0], v[1], v[2], e.filled);
            break;
        case Op::Square:
            canvas.Square(v[0], v[1], v[2], e.filled);
            break;
        case Op::TurnedSquare:
            canvas.TurnedSquare(v[0], v[1], v[2], v[3], v[4], e.filled);
            break;
        case Op::Triangle:
            canvas.Triangle(v[0], v[1], v[2], v[3], v[4], e.filled);
            break;
        case Op::Text:
            canvas.Text(v[0], v[1], texts_[static_cast<size_t>(e.text)], e.color, static_cast<int>(v[2]),
                        static_cast<int>(v[3]));
            break;
        case Op::Label:
            canvas.Label(v[0], v[1], texts_[static_cast<size_t>(e.text)], e.color, e.halo,
                         static_cast<int>(v[2]), static_cast<int>(v[3]));
            break;
        }
    }
    ops_.clear();
    numbers_.clear();
    texts_.clear();
}

} // namespace kavrin
