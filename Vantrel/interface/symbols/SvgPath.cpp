#include "Vantrel/interface/symbols/SvgPath.h"

#include <QByteArrayView>
#include <QtMath>

#include <algorithm>
#include <cctype>
#include <cmath>

namespace vantrel {

namespace {

class Reader {
public:
    explicit Reader(std::string_view data) : m_data(data) {}

    QPainterPath read() {
        char command = 0;
        while (skipSpace(), !m_data.empty()) {
            if (std::isalpha(static_cast<unsigned char>(m_data.front())) != 0) {
                command = m_data.front();
                m_data.remove_prefix(1);
            }
            if (!draw(command)) {
                break;
            }
            // Further pairs after a move are lines.
            command = command == 'M' ? 'L' : command == 'm' ? 'l' : command;
        }
        return m_path;
    }

private:
    bool draw(char command) {
        const bool isRelative = std::islower(static_cast<unsigned char>(command)) != 0;
        const QPointF origin = isRelative ? m_path.currentPosition() : QPointF();
        switch (std::toupper(static_cast<unsigned char>(command))) {
        case 'M':
            m_path.moveTo(origin + point());
            break;
        case 'L':
            m_path.lineTo(origin + point());
            break;
        case 'H':
            m_path.lineTo(origin.x() + number(), m_path.currentPosition().y());
            break;
        case 'V':
            m_path.lineTo(m_path.currentPosition().x(), origin.y() + number());
            break;
        case 'C': {
            const QPointF first = origin + point();
            m_control = origin + point();
            m_path.cubicTo(first, m_control, origin + point());
            m_hasControl = true;
            return true;
        }
        case 'S': {
            const QPointF here = m_path.currentPosition();
            const QPointF first = m_hasControl ? 2 * here - m_control : here;
            m_control = origin + point();
            m_path.cubicTo(first, m_control, origin + point());
            m_hasControl = true;
            return true;
        }
        case 'A':
            arc(origin);
            break;
        case 'Z':
            m_path.closeSubpath();
            break;
        default:
            return false;
        }
        m_hasControl = false;
        return true;
    }

    // As in the implementation notes of SVG 1.1, F.6.5; our symbols have no rotated ellipses.
    void arc(QPointF origin) {
        const QPointF from = m_path.currentPosition();
        double rx = std::abs(number());
        double ry = std::abs(number());
        number();
        const bool isLarge = flag();
        const bool isClockwise = flag();
        const QPointF to = origin + point();
        const double dx = (from.x() - to.x()) / 2;
        const double dy = (from.y() - to.y()) / 2;
        if (rx <= 0 || ry <= 0 || (dx == 0 && dy == 0)) {
            m_path.lineTo(to);
            return;
        }
        const double stretch = std::sqrt(dx * dx / (rx * rx) + dy * dy / (ry * ry));
        if (stretch > 1) {
            rx *= stretch;
            ry *= stretch;
        }
        const double below = rx * rx * dy * dy + ry * ry * dx * dx;
        double factor = std::sqrt(std::max(0.0, rx * rx * ry * ry / below - 1));
        factor = isLarge == isClockwise ? -factor : factor;
        const QPointF offset(factor * rx * dy / ry, -factor * ry * dx / rx);
        const QPointF center = (from + to) / 2 + offset;
        const auto angle = [&](QPointF at) {
            return qRadiansToDegrees(std::atan2(-(at.y() - center.y()) / ry, (at.x() - center.x()) / rx));
        };
        const double start = angle(from);
        double sweep = angle(to) - start;
        // Qt's angles run counterclockwise.
        if (isClockwise && sweep > 0) {
            sweep -= 360;
        } else if (!isClockwise && sweep < 0) {
            sweep += 360;
        }
        m_path.arcTo(QRectF(center.x() - rx, center.y() - ry, 2 * rx, 2 * ry), start, sweep);
    }

    void skipSpace() {
        const auto end = m_data.find_first_not_of(" ,\t\n");
        m_data.remove_prefix(end == std::string_view::npos ? m_data.size() : end);
    }

    // Apple's C++ library cannot read numbers with a fraction from characters. Numbers may follow each other
    // without a space: a second point or a sign begins the next one.
    double number() {
        skipSpace();
        std::size_t end = 0;
        bool hasPoint = false;
        bool hasExponent = false;
        for (; end < m_data.size(); ++end) {
            const char c = m_data[end];
            const bool isAfterExponent = end > 0 && (m_data[end - 1] == 'e' || m_data[end - 1] == 'E');
            if (c == '.' && !hasPoint && !hasExponent) {
                hasPoint = true;
            } else if ((c == 'e' || c == 'E') && end > 0 && !hasExponent) {
                hasExponent = true;
            } else if (!(c >= '0' && c <= '9') &&
                       !((c == '-' || c == '+') && (end == 0 || isAfterExponent))) {
                break;
            }
        }
        const double value = QByteArrayView(m_data.substr(0, end)).toDouble();
        m_data.remove_prefix(end);
        return value;
    }

    // Flags may follow each other without a space.
    bool flag() {
        skipSpace();
        const bool isSet = !m_data.empty() && m_data.front() == '1';
        m_data.remove_prefix(std::min<std::size_t>(1, m_data.size()));
        return isSet;
    }

    QPointF point() {
        const double x = number();
        return {x, number()};
    }

    std::string_view m_data;
    QPainterPath m_path;
    QPointF m_control;
    bool m_hasControl = false;
};

} // namespace

QPainterPath svgPath(std::string_view data) {
    return Reader(data).read();
}

} // namespace vantrel
