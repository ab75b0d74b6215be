#include "app/shell/Appearance.h"

#include <algorithm>
#include <array>

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

constexpr std::array sizeSteps{80, 90, 100, 110, 125, 150, 175, 200};

QString known(const QString& theme) { return theme == "light"_L1 || theme == "dark"_L1 ? theme : u"system"_s; }

}  // namespace

Appearance::Appearance(Preferences& preferences, QObject* parent)
    : QObject(parent), m_preferences(preferences), m_theme(known(preferences.theme())) {}

void Appearance::setTheme(const QString& theme) {
  const QString wanted = known(theme);
  if (std::exchange(m_theme, wanted) == wanted) return;
  m_preferences.setTheme(wanted);
  Q_EMIT changed();
}

bool Appearance::dark() const { return m_theme == "dark"_L1 || (m_theme == "system"_L1 && m_systemDark); }

void Appearance::setSize(int percent) {
  if (std::ranges::find(sizeSteps, percent) != sizeSteps.end()) m_size = percent;
}

void Appearance::stepSize(int by) {
  const auto now = std::ranges::find(sizeSteps, m_size) - sizeSteps.begin();
  const int wanted = by == 0 ? 100 : sizeSteps[size_t(std::clamp(now + by, {}, std::ssize(sizeSteps) - 1))];
  if (std::exchange(m_size, wanted) != wanted) Q_EMIT sizeChosen(wanted);
}

void Appearance::setSystemDark(bool dark) {
  if (std::exchange(m_systemDark, dark) != dark) Q_EMIT changed();
}

void Appearance::setReducedMotion(bool reduced) {
  if (std::exchange(m_reducedMotion, reduced) != reduced) Q_EMIT changed();
}

}  // namespace orv
