#include "demo/SetupRuns.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

struct RunRow {
  const char* state;
  const char* message = nullptr;
};

DemoSetupProject project(qint64 number, const QString& name, const SetupMode& mode, const QStringList& domains,
                         const QDate& day) {
  DemoSetupProject made;
  SetupProject& record = made.record;
  record.id = u"sp"_s + QString::number(number);
  record.number = number;
  record.name = name;
  record.mode = mode;
  record.admin = u"ellen"_s;
  record.firstName = u"Ellen"_s;
  record.lastName = u"Marsh"_s;
  record.user2 = u"e.marsh"_s;
  record.signature = u"Ellen Marsh\nNorthgate Fleet Care"_s;
  record.dailyLimit = 30;
  record.minWaitMinutes = 12;
  record.tags = {u"fleet"_s, u"spring"_s};
  record.domains = domains;
  record.hasPassword = record.hasNewPassword = record.hasRecovery = true;
  record.savedRecovery = u"it@northgate.example.com"_s;
  record.version = 1;
  record.updatedAt = formatPlatformDate(day.startOfDay(Qt::UTC).addSecs(9 * 3600));
  return made;
}

/// A run that stands as given, three inboxes a domain.
DemoSetupRun run(const DemoSetupProject& of, const QString& control, const QList<RunRow>& states, const QDate& day) {
  DemoSetupRun made;
  SetupRun& record = made.record;
  const QDateTime began = day.startOfDay(Qt::UTC).addSecs(8 * 3600);
  record.id = u"sr-"_s + of.record.id;
  record.mode = of.record.mode;
  record.templateId = of.record.id;
  record.createdAt = formatPlatformDate(began);
  record.settings.admin = of.record.admin;
  record.settings.user2 = of.record.user2;
  record.settings.firstName = of.record.firstName;
  record.settings.lastName = of.record.lastName;
  record.settings.tags = of.record.tags;
  record.control = RunControl(control);
  const QStringList inboxes{u"admin"_s, u"user2"_s, u"user3"_s};
  for (const QString& domain : of.record.domains) {
    record.domains.append({domain, of.record.admin + u'@' + domain, {}});
    const QStringList addresses = setupAddresses(record.settings, domain);
    for (qsizetype role = 0; role < inboxes.size(); ++role) {
      const RunRow& given = states[record.rows.size() % states.size()];
      SetupRow row;
      row.id = record.id + u'-' + QString::number(record.rows.size() + 1);
      row.domain = domain;
      row.role = InboxRole(inboxes[role]);
      row.address = addresses[role];
      row.state = RowState(QString::fromLatin1(given.state));
      if (given.message) row.message = QString::fromUtf8(given.message);
      // Where it stopped: Google refused the photo.
      row.step = row.state.isError() ? u"photo"_s : row.state.rawValue;
      if (row.state.isAuthorize())
        record.domains.last().authorizeUrl = u"https://admin.google.com/ac/owl/domainwidedelegation?domain="_s + domain;
      row.updatedAt = formatPlatformDate(began.addSecs(60 * (record.rows.size() + 5)));
      record.rows.append(row);
    }
  }
  return made;
}

constexpr const char* photoRefused = "Google refused the profile photo: the file is not a JPEG or PNG.";

}  // namespace

void addSetup(DemoWorkspace& workspace, const QDate& today) {
  const SetupMode fresh = SetupMode::fresh(), existing = SetupMode::existing();
  workspace.setupProjects = {
      project(1, u"Spring domains"_s, fresh,
              {u"fleet-reach.example.com"_s, u"bay-desk.example.com"_s, u"depot-slots.example.org"_s,
               u"van-service.example.com"_s, u"bays-online.example.com"_s, u"slot-planner.example.org"_s,
               u"garage-times.example.com"_s, u"fleet-lane.example.com"_s},
              today),
      project(2, u"Clinic inboxes"_s, fresh,
              {u"clinic-times.example.com"_s, u"nordic-slots.example.org"_s, u"care-desk.example.com"_s,
               u"van-clinic.example.com"_s},
              today.addDays(-3)),
      project(3, u"Old team inboxes"_s, existing, {u"harbor-post.example.com"_s, u"quay-mail.example.com"_s},
              today.addDays(-9)),
      project(4, u"Winter domains"_s, fresh, {u"snow-routes.example.com"_s}, today.addDays(-40)),
  };
  auto& projects = workspace.setupProjects;
  projects[0].record.archivedDomains = {
      {u"fleet-old.example.com"_s, u"Taken off by a member"_s, formatPlatformDate(today.startOfDay(Qt::UTC))},
      {u"bay-old.example.org"_s, u"The registrar let it go"_s, formatPlatformDate(today.startOfDay(Qt::UTC))}};
  projects[1].record.hasNewPassword = false;
  projects[2].record.hasPassword = projects[2].record.hasNewPassword = projects[2].record.hasRecovery = false;
  projects[2].record.savedRecovery.reset();
  projects[3].record.archivedAt = formatPlatformDate(today.addDays(-4).startOfDay(Qt::UTC));
  workspace.setupRuns = {
      run(projects[0], u"paused"_s,
          {{"connected"}, {"connected"}, {"connected"}, {"settings"},  {"connecting"},          {"gmail"},
           {"authorize"}, {"waiting"},   {"waiting"},   {"connected"}, {"error", photoRefused}, {"connected"},
           {"connected"}, {"connected"}, {"connected"}, {"exists"},    {"connected"},           {"connected"},
           {"creating"},  {"waiting"},   {"waiting"},   {"connected"}, {"connected"},           {"connected"}},
          today.addDays(-1)),
      run(projects[1], u"run"_s,
          {{"connected"},
           {"connected"},
           {"connected"},
           {"connected"},
           {"connected"},
           {"connected"},
           {"connected"},
           {"connected"},
           {"connected"},
           {"connected"},
           {"error", photoRefused},
           {"connected"}},
          today.addDays(-3)),
  };
}

}  // namespace orv::demo
