#include "demo/SetupRuns.h"

#include <algorithm>
#include <array>

#include "demo/Mailboxes.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

constexpr int secondsToAuthorize = 25, secondsLocked = 60;
constexpr std::array roles{"admin"_L1, "user2"_L1, "user3"_L1};

/// What happens on a domain goes by its name, so that everything there is can be seen.
int kindOf(const QString& domain) { return int(DemoRandom::of(domain).below(8)); }
bool waitsForAdmin(const QString& domain) { return kindOf(domain) == 2 || domain.startsWith("depot"_L1); }
bool getsLocked(const QString& domain) { return kindOf(domain) == 5; }
bool refusesPhoto(const SetupRow& row) {
  return row.role.rawValue == "user2"_L1 && (kindOf(row.domain) == 3 || row.domain.startsWith("van"_L1));
}

qint64 secondsOf(const SetupRow& row) { return 3 + DemoRandom::of(row.address + row.state.rawValue).below(5); }

/// A run while it goes on.
class Progress {
 public:
  Progress(Call& call, DemoSetupRun& run) : m_call(call), m_run(run) {}

  void advance() {
    for (SetupRow& row : m_run.record.rows) {
      while (!row.state.isEnd() && m_run.next.value(row.id) <= m_call.now) step(row, m_run.next.value(row.id));
    }
  }

 private:
  void become(SetupRow& row, const QString& state, const QDateTime& at, qint64 seconds) {
    row.state = RowState(state);
    row.updatedAt = formatPlatformDate(at);
    row.step = state;
    row.message.reset();
    row.lockedUntil.reset();
    m_run.next[row.id] = at.addSecs(seconds);
  }

  void fail(SetupRow& row, const QString& why, const QDateTime& at) {
    become(row, u"error"_s, at, 0);
    row.message = why;
  }

  const SetupRow* adminOf(const SetupRow& row) const {
    const auto& rows = m_run.record.rows;
    const auto found = std::ranges::find_if(
        rows, [&row](const SetupRow& each) { return each.domain == row.domain && each.role.rawValue == "admin"_L1; });
    return found == rows.cend() ? nullptr : &*found;
  }

  void begin(SetupRow& row, const QDateTime& at) {
    if (isConnected(*m_call.workspace, row.address)) return become(row, u"exists"_s, at, 0);
    const QString first = m_run.record.mode.isNew() ? u"creating"_s : u"connecting"_s;
    if (row.role.rawValue != "admin"_L1) {
      const SetupRow* admin = adminOf(row);
      const bool hasAdmin = !admin || admin->state.isDone() || admin->state.stepsDone() > 1;
      if (admin && admin->state.isError()) {
        become(row, u"stopped"_s, at, 0);
        row.message = u"The admin inbox of this domain failed."_s;
        return;
      }
      return hasAdmin ? become(row, first, at, secondsOf(row)) : void(m_run.next[row.id] = at.addSecs(2));
    }
    if (!waitsForAdmin(row.domain) || m_run.mended.contains(row.domain)) return become(row, first, at, secondsOf(row));
    become(row, u"authorize"_s, at, secondsToAuthorize);
    row.message = u"The admin of this domain has not let the service in yet."_s;
  }

  void connect(SetupRow& row, const QDateTime& at) {
    const SetupRunSettings& settings = m_run.record.settings;
    const QString person = settings.firstName.value_or(QString()) + u' ' + settings.lastName.value_or(QString());
    const QString sender = settings.senderName.value_or(QString());
    DemoMailbox mailbox = newMailbox(m_call, row.address, sender.isEmpty() ? person.trimmed() : sender);
    mailbox.record.provider = u"google"_s;
    mailbox.record.connection = Mailbox::Connection{u"google_dwd"_s, u"connected"_s, {}, formatPlatformDate(at), {}};
    mailbox.record.status = MailboxStatus(u"active"_s);
    mailbox.record.tags = settings.tags;
    mailbox.record.signature = settings.signature;
    row.mailboxId = mailbox.id();
    m_call.workspace->mailboxes.append(mailbox);
    become(row, u"connected"_s, at, 0);
  }

  void step(SetupRow& row, const QDateTime& at) {
    const QString state = row.state.rawValue;
    const auto go = [&](const QString& next) { become(row, next, at, secondsOf(row)); };
    if (row.state.isWaiting()) return begin(row, at);
    if (state == "authorize"_L1) {
      m_run.mended.insert(row.domain);
      return go(m_run.record.mode.isNew() ? u"creating"_s : u"connecting"_s);
    }
    if (state == "creating"_L1) {
      const bool isLocked = row.role.rawValue == "admin"_L1 && getsLocked(row.domain);
      if (!isLocked || m_run.mended.contains(row.domain)) return go(u"photo"_s);
      m_run.mended.insert(row.domain);
      become(row, u"creating"_s, at, secondsLocked);
      row.lockedUntil = formatPlatformDate(at.addSecs(secondsLocked));
      return;
    }
    if (state == "photo"_L1) {
      if (!refusesPhoto(row) || m_run.mended.contains(row.domain)) return go(u"gmail"_s);
      return fail(row, u"Google refused the profile photo: the file is not a JPEG or PNG."_s, at);
    }
    if (state == "gmail"_L1) return go(u"connecting"_s);
    if (state == "connecting"_L1) return go(u"settings"_s);
    connect(row, at);
  }

  Call& m_call;
  DemoSetupRun& m_run;
};

}  // namespace

void advanceSetup(Call& call) {
  for (DemoSetupRun& run : call.workspace->setupRuns)
    if (run.record.control.rawValue == "run"_L1) Progress(call, run).advance();
  call.workspace->setupProjects.removeIf(
      [&call](const DemoSetupProject& each) { return isOverdue(each.record.archivedAt, call.now); });
}

QStringList setupAddresses(const SetupRunSettings& settings, const QString& domain) {
  const QString first = settings.firstName.value_or(QString()).toLower().remove(u' ');
  const QString last = settings.lastName.value_or(QString()).toLower().remove(u' ');
  const auto orMade = [](const std::optional<QString>& given, const QString& made) {
    return given && !given->isEmpty() ? *given : made;
  };
  return {settings.admin + u'@' + domain, orMade(settings.user2, first.left(1) + u'.' + last) + u'@' + domain,
          orMade(settings.user3, last) + u'@' + domain};
}

DemoSetupRun newRun(Call& call, const NewSetupRunBody& body) {
  DemoSetupRun made;
  SetupRun& run = made.record;
  run.id = call.random.id(u"sr"_s);
  run.mode = body.mode;
  run.templateId = body.templateId;
  run.createdAt = call.stamp();
  run.settings = {body.admin,      body.user2,     body.user3,      body.firstName, body.lastName,
                  body.senderName, body.signature, body.dailyLimit, body.tags,      body.minWaitMinutes};
  run.scopes = u"https://mail.google.example/"_s;
  run.control = RunControl(u"run"_s);
  qint64 place = 0;
  for (const QString& domain : body.domains) {
    std::optional<QString> url;
    if (waitsForAdmin(domain)) url = u"https://admin.google.com/ac/owl/domainwidedelegation?domain="_s + domain;
    run.domains.append({domain, body.admin + u'@' + domain, url});
    const QStringList addresses = setupAddresses(run.settings, domain);
    for (size_t role = 0; role < roles.size(); ++role) {
      SetupRow row;
      row.id = run.id + u'-' + QString::number(run.rows.size() + 1);
      row.domain = domain;
      row.role = InboxRole(QString(roles[role]));
      row.address = addresses[qsizetype(role)];
      row.state = RowState(u"waiting"_s);
      row.updatedAt = call.stamp();
      made.next[row.id] = call.now.addSecs(1 + 4 * place);
      run.rows.append(row);
    }
    ++place;
  }
  return made;
}

void pauseRun(DemoSetupRun& run, const QDateTime& now) {
  run.record.control = RunControl(u"paused"_s);
  run.pausedAt = now;
}

void resumeRun(DemoSetupRun& run, const QDateTime& now) {
  run.record.control = RunControl(u"run"_s);
  const qint64 stood = run.pausedAt ? run.pausedAt->secsTo(now) : 0;
  run.pausedAt.reset();
  for (const SetupRow& row : std::as_const(run.record.rows)) {
    QDateTime& next = run.next[row.id];
    next = next.isValid() ? next.addSecs(stood) : now.addSecs(secondsOf(row));
  }
}

void terminateRun(DemoSetupRun& run, const QDateTime& now) {
  run.record.control = RunControl(u"terminated"_s);
  for (SetupRow& row : run.record.rows) {
    if (row.state.isEnd()) continue;
    row.state = RowState(u"stopped"_s);
    row.updatedAt = formatPlatformDate(now);
  }
}

void retryRun(DemoSetupRun& run, const QString& domain, const QDateTime& now) {
  run.record.control = RunControl(u"run"_s);
  run.pausedAt.reset();
  for (SetupRow& row : run.record.rows) {
    if ((!domain.isEmpty() && row.domain != domain) || row.state.isDone()) continue;
    if (row.state.isError()) run.mended.insert(row.domain);
    if (row.state.isEnd()) {
      row.state = RowState(u"waiting"_s);
      row.message.reset();
      row.updatedAt = formatPlatformDate(now);
    }
    run.next[row.id] = now.addSecs(1);
  }
}

DemoSetupRun* latestRun(DemoWorkspace& workspace, const QString& projectId) {
  for (auto run = workspace.setupRuns.rbegin(); run != workspace.setupRuns.rend(); ++run)
    if (run->record.templateId == projectId) return &*run;
  return nullptr;
}

SetupProject shownProject(DemoWorkspace& workspace, const DemoSetupProject& project) {
  SetupProject shown = project.record;
  const DemoSetupRun* latest = latestRun(workspace, shown.id);
  if (!latest) return shown;
  SetupLastRun& last = shown.lastRun.emplace();
  last.id = latest->record.id;
  last.createdAt = latest->record.createdAt;
  last.control = latest->record.control;
  last.total = latest->record.rows.size();
  for (const SetupRow& row : latest->record.rows) {
    last.connected += row.state.isDone();
    last.failed += row.state.isError();
    last.running += !row.state.isEnd();
  }
  return shown;
}

DomainChecks checksOf(const DemoSetupRun& run, const QString& domain, bool hasPhoto) {
  DomainChecks checks;
  checks.domain = domain;
  const bool isFresh = std::ranges::none_of(
      run.record.rows, [&](const SetupRow& row) { return row.domain == domain && row.state.isDone(); });
  checks.dns = {true, true, true, !isFresh, !isFresh && kindOf(domain) != 4};
  if (kindOf(domain) == 6) checks.dns.dmarc.reset();
  for (const SetupRow& row : run.record.rows) {
    if (row.domain != domain) continue;
    DomainChecks::Inbox inbox{row.address, row.role, {}, {}, row.state.isDone()};
    if (row.state.stepsDone() > 2) inbox.photo = hasPhoto;
    if (row.state.stepsDone() > 3) inbox.imap = true;
    checks.inboxes.append(inbox);
  }
  return checks;
}

}  // namespace orv::demo
