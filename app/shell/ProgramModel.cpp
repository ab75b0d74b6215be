#include "app/shell/ProgramModel.h"

#include <QRegularExpression>
#include <QSysInfo>

#include "app/base/shownName.h"
#include "app/shell/AppModel.h"
#include "app/shell/Changelog.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

namespace {

constexpr int linesShown = 500, linesSearched = 5000;
constexpr qsizetype requestsTold = 20;

}  // namespace

ProgramModel::ProgramModel(AppModel& app, Platform& platform, Toasts& toasts)
    : m_app(app),
      m_platform(platform),
      m_toasts(toasts),
      m_updates(platform.clock, toasts, platform.browser, platform.device.appVersion, [this] { Q_EMIT changed(); }) {
  connect(&app, &AppModel::changed, this, &Program::changed);
  connect(&app, &AppModel::changed, this, &ProgramModel::greet);
  if (platform.notifications) connect(platform.notifications, &Notifications::troubleChanged, this, &Program::changed);
  m_updates.follow(platform.releases);
}

/// Once for each version, and not to who has never had another one.
void ProgramModel::greet() {
  if (m_app.phase() != AppModel::Phase::signedIn) return;
  const QString told = m_platform.preferences.versionTold();
  if (told == version()) return;
  m_platform.preferences.setVersionTold(version());
  if (!told.isEmpty()) setChangelogShown(true);
}

void ProgramModel::setChangelogShown(bool shown) {
  if (std::exchange(m_changelogShown, shown) != shown) Q_EMIT shownChanged();
}

QString ProgramModel::changelog() const { return changelogText(); }

void ProgramModel::setLogShown(bool shown) {
  if (std::exchange(m_logShown, shown) == shown) return;
  m_log = shown && m_platform.log ? m_platform.log->lines(linesShown).join(u'\n') : QString();
  Q_EMIT shownChanged();
}

QString ProgramModel::diagnostics() const {
  static const QRegularExpression request(uR"(\brequest ([A-Za-z0-9_-]{1,64})\b)"_s);
  QStringList ids;
  if (m_platform.log)
    for (const QString& line : m_platform.log->lines(linesSearched))
      if (const auto match = request.match(line); match.hasMatch()) ids.append(match.captured(1));
  ids = ids.mid(std::max<qsizetype>(0, ids.size() - requestsTold));
  return u"Orvella "_s + version() + u'\n' + QSysInfo::prettyProductName() + u", "_s + QSysInfo::kernelType() + u' ' +
         QSysInfo::kernelVersion() + u"\nLast requests: "_s + (ids.isEmpty() ? u"none"_s : ids.join(u", "_s));
}

void ProgramModel::copyDiagnostics() {
  const bool copied = m_platform.clipboard.setText(diagnostics());
  m_toasts.show({.message = copied ? u"Diagnostics copied"_s : u"Couldn’t copy."_s,
                 .tone = copied ? Toasts::Tone::success : Toasts::Tone::error});
}

QString ProgramModel::userName() const { return m_app.userName(); }
QString ProgramModel::userEmail() const { return m_app.userEmail(); }
QString ProgramModel::userId() const { return m_app.stored() ? m_app.stored()->user.id : QString(); }
QString ProgramModel::theme() const { return m_app.appearance()->theme(); }

void ProgramModel::setTheme(const QString& theme) {
  m_app.appearance()->setTheme(theme);
  Q_EMIT changed();
}

QString ProgramModel::version() const { return m_platform.device.appVersion; }

QString ProgramModel::device() const {
  const Device& device = m_platform.device;
  QStringList facts;
  // What the service is told of the system is a word that it knows.
  for (const QString& fact : {device.name, device.model, QSysInfo::prettyProductName()})
    if (!fact.isEmpty()) facts.append(shownName(fact));
  return facts.join(u" · "_s);
}

QString ProgramModel::notificationTrouble() const {
  return m_platform.notifications ? m_platform.notifications->trouble() : QString();
}

QStringList ProgramModel::featuresOff() const { return m_app.router()->featuresOff().values(); }
QStringList ProgramModel::migrationPick() const { return m_app.router()->migrationPick(); }
void ProgramModel::signOut() { m_app.signOut(); }
void ProgramModel::rereadAccount() { m_app.rereadAccount(); }
void ProgramModel::deletesWorkspace(const QString& slug, Deletion deletion) { m_app.deletesWorkspace(slug, deletion); }

}  // namespace orv
