#include "host/print/SvgPlots.h"

#include <algorithm>
#include <cmath>

#include "host/print/HtmlText.h"

namespace OmbreliaHost {

namespace {

// Places of the picture; a mark reaches MARK beyond its value.
constexpr long MARK = 5;

// Values from least to most on places from first to last.
class Scale {
 public:
  Scale(long least, long most, long first, long last)
      : m_least(static_cast<double>(least)),
        m_span(static_cast<double>(most) - static_cast<double>(least)),
        m_first(static_cast<double>(first)),
        m_length(static_cast<double>(last - first)) {}

  long At(long value) const {
    // A single value stands in the middle.
    const double share = m_span > 0 ? (static_cast<double>(value) - m_least) / m_span : 0.5;
    return std::lround(m_first + share * m_length);
  }

 private:
  double m_least;
  double m_span;
  double m_first;
  double m_length;
};

std::string Words(long number, const std::string& unit) {
  return NumberWithCommas(number) + (unit.empty() ? "" : " " + unit);
}

std::string WordsOnBounds(const PlotBounds& bounds, const std::string& unit) {
  return "bounds " + NumberWithCommas(bounds.min) + " to " + Words(bounds.max, unit);
}

bool IsWithin(long value, const PlotBounds& bounds) {
  return value >= bounds.min && value <= bounds.max;
}

std::string Dot(long x, long y, long radius) {
  return "<circle class=\"dot\" cx=\"" + std::to_string(x) + "\" cy=\"" + std::to_string(y) +
         "\" r=\"" + std::to_string(radius) + "\"/>";
}

std::string Cross(long x, long y, long size) {
  const std::string side = std::to_string(2 * size);
  return "<path class=\"cross\" d=\"M" + std::to_string(x - size) + " " + std::to_string(y - size) +
         "l" + side + " " + side + "m0 -" + side + "l-" + side + " " + side + "\"/>";
}

std::string Start(const char* kind, long width, long height, const std::string& words) {
  return "<svg class=\"plot " + std::string(kind) + "\" viewBox=\"0 0 " + std::to_string(width) +
         " " + std::to_string(height) + "\" role=\"img\"" + HtmlAttribute("aria-label", words) +
         ">";
}

std::string Band(long x, long y, long width, long height) {
  return "<rect class=\"band\" x=\"" + std::to_string(x) + "\" y=\"" + std::to_string(y) +
         "\" width=\"" + std::to_string(width) + "\" height=\"" + std::to_string(height) +
         "\" rx=\"2\"/>";
}

}  // namespace

std::string NumberWithCommas(long number) {
  std::string digits = std::to_string(number);
  const std::size_t first = digits.front() == '-' ? 1 : 0;
  for (std::size_t end = digits.size(); end > first + 3; end -= 3) digits.insert(end - 3, ",");
  return digits;
}

std::string PlotOfValue(const std::string& name, const std::string& unit, long value,
                        const std::optional<PlotBounds>& bounds) {
  constexpr long WIDTH = 160;
  constexpr long HEIGHT = 16;
  constexpr long MIDDLE = HEIGHT / 2;
  const bool within = !bounds || IsWithin(value, *bounds);
  std::string words = name + " " + Words(value, unit);
  const Scale scale(bounds ? std::min(bounds->min, value) : value,
                    bounds ? std::max(bounds->max, value) : value, MARK + 2, WIDTH - MARK - 2);
  std::string band;
  if (bounds) {
    words += ", " +
             std::string(within                ? "within"
                         : value < bounds->min ? "below"
                                               : "above") +
             " the " + WordsOnBounds(*bounds, unit);
    const long from = scale.At(bounds->min);
    band = Band(from, MIDDLE - 4, std::max(scale.At(bounds->max) - from, 2L), 8);
  }
  const long at = scale.At(value);
  return Start("value", WIDTH, HEIGHT, words) + "<path class=\"axis\" d=\"M0 " +
         std::to_string(MIDDLE) + "h" + std::to_string(WIDTH) + "\"/>" + band +
         (within ? Dot(at, MIDDLE, MARK) : Cross(at, MIDDLE, MARK)) + "</svg>";
}

std::string PlotOfSeries(const std::string& name, const std::string& unit,
                         const std::vector<SeriesPoint>& points,
                         const std::optional<PlotBounds>& bounds) {
  constexpr long WIDTH = 320;
  constexpr long HEIGHT = 64;
  constexpr std::size_t MOST_POINTS = 400;
  if (points.empty()) return std::string();
  const std::vector<SeriesPoint> last(
      points.end() - static_cast<std::ptrdiff_t>(std::min(points.size(), MOST_POINTS)),
      points.end());
  const auto [lowest, highest] = std::minmax_element(
      last.begin(), last.end(),
      [](const SeriesPoint& a, const SeriesPoint& b) { return a.value < b.value; });
  std::string words = name + ": " + NumberWithCommas(static_cast<long>(last.size())) +
                      (last.size() == 1 ? " value" : " values") + " from " +
                      NumberWithCommas(lowest->value) + " to " + Words(highest->value, unit) +
                      ", the last one " + Words(last.back().value, unit);
  const long least = bounds ? std::min(bounds->min, lowest->value) : lowest->value;
  const long most = bounds ? std::max(bounds->max, highest->value) : highest->value;
  // The greatest value is on top.
  const Scale y(least, most, HEIGHT - MARK, MARK);
  const Scale x(0, static_cast<long>(last.size()) - 1, MARK, WIDTH - MARK);
  std::string band;
  if (bounds) {
    words += ", " + WordsOnBounds(*bounds, unit);
    const long top = y.At(bounds->max);
    band = Band(0, top, WIDTH, std::max(y.At(bounds->min) - top, 2L));
  }
  const auto bad =
      std::count_if(last.begin(), last.end(), [](const SeriesPoint& point) { return !point.good; });
  if (bad > 0) words += ", " + std::to_string(bad) + " bad";

  std::string line;
  std::string marks;
  for (std::size_t i = 0; i < last.size(); ++i) {
    const long px = x.At(static_cast<long>(i));
    const long py = y.At(last[i].value);
    line += (i == 0 ? "M" : "L") + std::to_string(px) + " " + std::to_string(py);
    if (!last[i].good) {
      marks += Cross(px, py, 3);
    } else if (last.size() <= 60) {
      marks += Dot(px, py, 2);
    }
  }
  return Start("series", WIDTH, HEIGHT, words) + band + "<path class=\"line\" d=\"" + line +
         "\"/>" + marks + "</svg>";
}

std::string HeatClass(double share) {
  if (!(share > 0)) return "heat0";
  if (share >= 1) return "heat10";
  return "heat" + std::to_string(std::clamp(static_cast<int>(std::lround(share * 10)), 1, 9));
}

}  // namespace OmbreliaHost
