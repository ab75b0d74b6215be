#include "app/accounts/GoogleConnect.h"

#include <QUrl>

#include "app/base/shownName.h"
#include "kit/api/Format.h"
#include "kit/models/mailboxes/mailbox.h"
#include "kit/models/mailboxes/mailboxRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

ORV_DEFINE_ROW(GoogleInboxRow)

namespace {

const auto adminHost = u"admin.google.com"_s;
const auto adminStepMissing = u"admin_step_missing"_s;

QString statusText(const QString& status) {
  if (status == "connected"_L1) return u"Connected"_s;
  if (status == "exists"_L1) return u"Already connected"_s;
  if (status == "invalid"_L1) return u"Invalid"_s;
  if (status == "failed"_L1) return u"Failed"_s;
  return status == adminStepMissing ? u"Not authorized"_s : status;
}

QString outcomeWords(const GoogleConnectOutcome& outcome) {
  return Format::grouped(outcome.connected) + u" of "_s + Format::grouped(outcome.results.size()) + u" connected"_s;
}

/// Whether asking again may help: the connection was lost, the service was busy or in trouble.
bool mayPass(const APIError& error) {
  return !error.is(APIError::Kind::problem) && !error.is(APIError::Kind::unauthorized);
}

}  // namespace

GoogleConnect::GoogleConnect(WorkspaceContext& context, Store* whole, Form& form)
    : Store(context, whole),
      m_form(form),
      m_actions(context, m_busy, [&context] { context.changes().stale<Mailbox>(); }),
      m_status(*this, [this] { return api().send(Requests::googleWorkspaceStatus()); },
               {.failed = u"Couldn’t check Google Workspace"_s, .loadsByItself = false}) {
  connect(&m_status, &ResourceBase::changed, this, &GoogleConnect::changed);
}

GoogleConnect::Stage GoogleConnect::stage() const {
  if (m_outcome) return Stage::outcome;
  if (m_directory) return Stage::directory;
  if (m_showsSteps) return Stage::steps;
  if (!m_status.value()) return Stage::checking;
  return m_status.value()->ready ? Stage::asking : Stage::unavailable;
}

QString GoogleConnect::waitedText() const {
  return u"Checked "_s + QString::number(m_waitedSeconds / waitPace.interval.count()) +
         u" times · stops after 15 minutes"_s;
}

QString GoogleConnect::addressHint() const {
  return u"The account you sign in to "_s + adminHost +
         u" with. Orvella reads the list of users on its domain; no password is typed here."_s;
}

QString GoogleConnect::clientId() const {
  return m_status.value() ? m_status.value()->clientId.value_or(QString()) : QString();
}

QString GoogleConnect::scope() const { return m_status.value() ? m_status.value()->scope : QString(); }

QString GoogleConnect::directoryText() const {
  if (!m_directory) return {};
  return Format::grouped(pickable()) + u" new on "_s + shownName(m_directory->domain) + u", "_s +
         Format::grouped(m_directory->existing.size()) + u" already connected"_s;
}

QString GoogleConnect::outcomeText() const { return m_outcome ? outcomeWords(*m_outcome) : QString(); }

QString GoogleConnect::connectLabel() const {
  return u"Connect "_s + Format::counted(pickedCount(), u"inbox"_s, u"inboxes"_s);
}

bool GoogleConnect::canConnect() const {
  return stage() == Stage::directory && !m_connecting && !m_picked.isEmpty() && canWrite();
}

int GoogleConnect::pickable() const {
  return int(std::ranges::count_if(m_rows.records(), [](const GoogleInboxRow& row) { return !row.existing; }));
}

void GoogleConnect::start() {
  stop();
  m_status.load();
}

void GoogleConnect::stop() {
  m_search.cancel();
  m_copying.cancel();
  m_looking = m_waiting = m_showsSteps = m_connecting = false;
  m_waitedSeconds = 0;
  m_directory.reset();
  m_outcome.reset();
  m_picked.clear();
  m_copied.clear();
  m_rows.replace({});
  set({});
}

void GoogleConnect::close() {
  stop();
  Store::close();
}

void GoogleConnect::find(const QString& admin) {
  if (admin.trimmed().isEmpty() || m_connecting || !canWrite()) return;
  m_search.start(findTask(admin.trimmed()));
}

Task<void> GoogleConnect::findTask(QString admin) {
  m_looking = true;
  m_waiting = m_showsSteps = false;
  m_waitedSeconds = 0;
  m_directory.reset();
  m_outcome.reset();
  set({});
  const auto first = co_await ask(admin, true);
  m_looking = false;
  // Whatever it is, it is no reason to wait.
  if (!first || take(*first)) co_return Q_EMIT changed();
  m_waiting = true;
  Q_EMIT changed();
  const bool answered = co_await poll(services().clock, waitPace, [this, admin] { return askAgain(admin); });
  m_waiting = false;
  if (!answered)
    set(u"No Authorize click seen in 15 minutes. Do the step in Google Admin, then press Find inboxes again."_s);
  Q_EMIT changed();
}

Task<bool> GoogleConnect::askAgain(QString admin) {
  m_waitedSeconds += int(waitPace.interval.count());
  Q_EMIT changed();
  const auto directory = co_await ask(admin, false);
  // A refusal has been shown, and ends the wait; a reading that was lost does not.
  if (!directory) co_return !m_problem.isEmpty();
  co_return take(*directory);
}

Task<std::optional<GoogleDirectory>> GoogleConnect::ask(QString admin, bool isFirst) {
  try {
    co_return co_await api().send(Requests::googleDirectory({admin}));
  } catch (const APIError& error) {
    if (isFirst || !mayPass(error)) set(error.message());
  }
  co_return std::nullopt;
}

/// True when the answer is the last one.
bool GoogleConnect::take(const GoogleDirectory& directory) {
  if (directory.code == adminStepMissing) {
    m_showsSteps = true;
    return false;
  }
  m_showsSteps = false;
  const QString code = directory.code.value_or(QString());
  if (code == "need_admin"_L1) {
    set(u"That address is not a Google Workspace admin. Use the account that signs in to "_s + adminHost + u'.');
  } else if (code == "personal_gmail"_L1) {
    set(u"That is a personal Gmail address. Google Workspace only."_s);
  } else if (!code.isEmpty()) {
    set(u"Google answered with "_s + shownName(directory.message.value_or(code)));
  } else {
    m_directory = directory;
    m_existing.clear();
    for (const QString& address : directory.existing) m_existing.insert(address.toCaseFolded());
    for (const QString& address : directory.addresses)
      if (!isExisting(address)) m_picked.insert(address);
    showInboxes();
  }
  return true;
}

void GoogleConnect::cancelWait() {
  m_search.cancel();
  m_looking = m_waiting = m_showsSteps = false;
  Q_EMIT changed();
}

void GoogleConnect::copy(const QString& what) {
  const QString text = what == "clientId"_L1 ? clientId() : scope();
  if (!services().clipboard.setText(text)) return set(u"Couldn’t copy. Select the text and copy it."_s);
  m_copying.start(showCopied(what));
}

Task<void> GoogleConnect::showCopied(QString what) {
  m_copied = what;
  Q_EMIT changed();
  co_await services().clock.sleep(copiedShown);
  m_copied.clear();
  Q_EMIT changed();
}

void GoogleConnect::openAdmin() {
  if (!m_status.value() || services().browser.open(QUrl(m_status.value()->adminUrl))) return;
  set(u"Couldn’t open the browser. Open "_s + m_status.value()->adminUrl + u" yourself."_s);
}

void GoogleConnect::toggle(const QString& address) {
  if (stage() != Stage::directory || m_connecting) return;
  const int row = m_rows.rowOf(address);
  if (row < 0 || m_rows.records()[size_t(row)].existing) return;
  if (!m_picked.remove(address)) m_picked.insert(address);
  showInboxes();
}

void GoogleConnect::pickAll(bool picked) {
  if (stage() != Stage::directory || m_connecting) return;
  m_picked.clear();
  for (const GoogleInboxRow& row : m_rows.records())
    if (picked && !row.existing) m_picked.insert(row.id);
  showInboxes();
}

void GoogleConnect::connectPicked() {
  if (canConnect()) m_tasks.start(connectTask());
}

Task<void> GoogleConnect::connectTask() {
  AddressesBody body;
  for (const GoogleInboxRow& row : m_rows.records())
    if (row.picked) body.addresses.append(row.id);
  auto submission = m_form.begin();
  m_connecting = true;
  set({});
  // Whoever closed the dialog meanwhile is told by a message.
  const auto outcome = co_await m_actions.send(Requests::googleConnect(body), u"Couldn’t connect the inboxes."_s, {},
                                               [this, &submission](const APIError& error) {
                                                 if (!submission.isShown()) return false;
                                                 m_connecting = false;
                                                 set(error.message());
                                                 return true;
                                               });
  if (!outcome) co_return;
  context().changes().stale<Mailbox>();
  if (!submission.isShown()) {
    services().toasts.success(outcomeWords(*outcome));
    co_return;
  }
  m_connecting = false;
  m_outcome = *outcome;
  showOutcome();
}

void GoogleConnect::showInboxes() {
  std::vector<GoogleInboxRow> rows;
  for (const QString& address : std::as_const(m_directory->addresses)) {
    const bool existing = isExisting(address);
    rows.push_back({address,
                    address,
                    existing,
                    m_picked.contains(address),
                    {},
                    existing ? statusText(u"exists"_s) : QString(),
                    {}});
  }
  m_rows.update(std::move(rows));
  Q_EMIT changed();
}

void GoogleConnect::showOutcome() {
  std::vector<GoogleInboxRow> rows;
  for (const GoogleConnectResult& result : std::as_const(m_outcome->results))
    rows.push_back(
        {result.address, result.address, false, false, result.status, statusText(result.status), result.message});
  m_rows.replace(std::move(rows));
  Q_EMIT changed();
}

void GoogleConnect::set(const QString& problem) {
  m_problem = problem;
  Q_EMIT changed();
}

}  // namespace orv
