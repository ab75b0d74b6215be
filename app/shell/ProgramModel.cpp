#include "app/shell/ProgramModel.h"

#include "app/base/shownName.h"
#include "app/shell/AppModel.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

ProgramModel::ProgramModel(AppModel& app, const Platform& platform) : m_app(app), m_platform(platform) {
  connect(&app, &AppModel::changed, this, &Program::changed);
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
  for (const QString& fact : {device.name, device.model, device.os})
    if (!fact.isEmpty()) facts.append(shownName(fact));
  return facts.join(u" · "_s);
}

QStringList ProgramModel::featuresOff() const { return m_app.router()->featuresOff().values(); }
QStringList ProgramModel::migrationPick() const { return m_app.router()->migrationPick(); }
void ProgramModel::signOut() { m_app.signOut(); }
void ProgramModel::rereadAccount() { m_app.rereadAccount(); }
void ProgramModel::workspaceDeleted(const QString& slug) { m_app.workspaceDeleted(slug); }

}  // namespace orv
