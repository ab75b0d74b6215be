#include "app/accounts/AccountDetail.h"

#include "app/base/cellText.h"
#include "app/base/shownName.h"
#include "kit/api/Format.h"
#include "kit/api/plainText.h"
#include "kit/models/mailboxes/mailboxBrand.h"
#include "kit/models/mailboxes/mailboxRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

/// Of what a mail server says.
constexpr qsizetype longestError = 1000;

Choice fact(const QString& label, const QString& value) {
  return {.key = label, .label = label, .detail = value.isEmpty() ? noValue : value};
}

QString ofText(qint64 part, std::optional<qint64> whole) {
  return whole ? Format::grouped(part) + u" of "_s + Format::grouped(*whole) : Format::grouped(part);
}

QString roadmapText(const Mailbox& account) {
  if (account.isPool()) return u"Warms up the others"_s;
  if (!account.rampup || !account.rampup->stageName) return {};
  const auto& rampup = *account.rampup;
  QString stage = shownName(*rampup.stageName);
  if (!rampup.stageDay || !rampup.stageDays) return stage;
  return stage + u", day "_s + QString::number(*rampup.stageDay) + u" of "_s + QString::number(*rampup.stageDays);
}

QString readyText(const Mailbox& account) {
  if (!account.sendReady) return {};
  if (account.sendReady->ready) return u"Ready to send"_s;
  return shownName(account.sendReady->reason.value_or(u"Not ready yet"_s));
}

QString capitalised(QString text) {
  if (!text.isEmpty()) text[0] = text[0].toUpper();
  return text;
}

}  // namespace

AccountDetail::AccountDetail(QString id, WorkspaceContext& context, AccountActions& actions,
                             AccountSettings::KnownTags knownTags)
    : Store(context),
      m_id(std::move(id)),
      m_actions(actions),
      m_account(*this, [this] { return api().send(Requests::getMailbox(m_id)); },
                {.failed = u"Couldn’t load this account"_s}),
      m_activity(context, this, m_id, m_account),
      m_settings(context, this, m_id, m_account, std::move(knownTags)),
      m_reconnect(context, actions, this) {
  connect(&m_account, &ResourceBase::changed, this, &AccountDetail::changed);
  connect(&actions, &AccountActions::busyChanged, this, &AccountDetail::busyChanged);
  context.changes().watch<Mailbox>(this, [this](const auto& change) { take(change); });
}

void AccountDetail::take(const Change<Mailbox>& change) {
  using Kind = Change<Mailbox>::Kind;
  if (!change.id.isEmpty() && change.id != m_id) return;
  if (change.kind == Kind::gone) {
    // Whoever is looking at it is led to where it can be brought back.
    if (context().openedItem(Page::accounts) == m_id) context().open(Page::accounts);
    m_account.markStale();
  } else if (change.kind == Kind::stale) {
    m_account.markStale();
  } else if (m_account.value() && *m_account.value() != *change.record) {
    const auto amend = [&change](Mailbox& shown) { shown = *change.record; };
    change.acted ? m_account.update(amend) : m_account.amend(amend);
  }
}

QString AccountDetail::address() const { return m_account.value() ? m_account.value()->address : QString(); }

void AccountDetail::setTab(const QString& name) {
  const auto tab = enumNamed<Tab>(name);
  if (!tab || std::exchange(m_tab, *tab) == *tab) return;
  Q_EMIT changed();
  Q_EMIT moved();
}

QList<Choice> AccountDetail::tabs() const {
  return {{.key = enumName(Tab::activity), .label = u"Activity"_s},
          {.key = enumName(Tab::settings), .label = u"Settings"_s}};
}

QString AccountDetail::connectionState() const {
  if (!m_account.value()) return {};
  const CheckState state = checkStateOf(*m_account.value());
  if (state == CheckState::running) return u"running"_s;
  return state == CheckState::failed ? u"failed"_s : u"connected"_s;
}

QString AccountDetail::connectionLabel() const {
  const QString state = connectionState();
  if (state == "running"_L1) return u"Verifying"_s;
  return state == "failed"_L1 ? u"Failed"_s : state.isEmpty() ? QString() : u"Connected"_s;
}

QString AccountDetail::connectionError() const {
  if (connectionState() != "failed"_L1 || !m_account.value()->connection) return {};
  return cutTo(m_account.value()->connection->lastError.value_or(QString()), longestError);
}

QString AccountDetail::lastCheck() const {
  if (!m_account.value() || !m_account.value()->connection) return {};
  const QString when = momentText(m_account.value()->connection->lastVerifiedAt, services().clock.now());
  return when.isEmpty() ? QString() : u"Last check: "_s + when;
}

QString AccountDetail::mainAction() const {
  const Mailbox* account = m_account.value();
  if (!account) return {};
  return account->connection && account->connection->kind == "google_dwd"_L1 ? u"check"_s : u"reconnect"_s;
}

QList<Choice> AccountDetail::warmupFacts() const {
  const Mailbox* account = m_account.value();
  if (!account) return {};
  const auto cap = account->rampup ? std::optional(account->rampup->campaignCapToday) : account->sendLimit;
  return {fact(u"Roadmap"_s, roadmapText(*account)),
          fact(u"Warm-up today"_s, ofText(account->warmup.sentToday, account->warmup.plannedToday)),
          fact(u"Campaign today"_s, account->campaign ? ofText(account->campaign->sentToday, cap) : QString())};
}

QList<Choice> AccountDetail::connectionFacts() const {
  const Mailbox* account = m_account.value();
  if (!account) return {};
  const auto at = account->connection ? account->connection->lastVerifiedAt : std::nullopt;
  return {fact(u"Provider"_s, brandName(*account)),
          fact(u"Last check"_s, capitalised(momentText(at, services().clock.now()))),
          fact(u"Campaigns"_s, readyText(*account))};
}

void AccountDetail::copyAddress() {
  if (address().isEmpty()) return;
  if (services().clipboard.setText(address())) return m_copying.start(showCopied());
  services().toasts.show({.message = u"Couldn’t copy. Select the address and copy it."_s, .tone = Toasts::Tone::error});
}

Task<void> AccountDetail::showCopied() {
  m_copied = true;
  Q_EMIT changed();
  co_await services().clock.sleep(copiedShown);
  m_copied = false;
  Q_EMIT changed();
}

void AccountDetail::beginReconnect() {
  if (m_account.value()) m_reconnect.show(*m_account.value());
}

QStringList AccountDetail::unsavedWork() const {
  if (!m_settings.dirty()) return {};
  return {u"“%1” has unsaved changes: settings."_s.arg(shownName(address()))};
}

QList<PageAction> AccountDetail::offered(const QString& record) {
  if (!record.isEmpty() || !m_account.value()) return {};
  const bool isFree = !busy(), isPaused = m_account.value()->status.isPaused();
  const QString address = shownName(this->address());
  QList<PageAction> actions;
  if (mainAction() == "reconnect"_L1)
    actions.append({.key = u"reconnect"_s,
                    .title = u"Reconnect"_s,
                    .icon = u"network-connect"_s,
                    .inPalette = u"Reconnect "_s + address,
                    .writes = true,
                    .possible = isFree,
                    .inMenu = false,
                    .run = [this] { beginReconnect(); }});
  actions.append({{.key = u"check"_s,
                   .title = u"Check connection"_s,
                   .icon = u"network-connect"_s,
                   .inPalette = u"Check the connection of "_s + address,
                   .writes = true,
                   .possible = isFree,
                   .inMenu = mainAction() != "check"_L1,
                   .run = [this, address] { m_actions.test(m_id, address); }},
                  {.key = isPaused ? u"resume"_s : u"pause"_s,
                   .title = isPaused ? u"Resume"_s : u"Pause"_s,
                   .icon = isPaused ? u"media-playback-start"_s : u"media-playback-pause"_s,
                   .inPalette = (isPaused ? u"Resume "_s : u"Pause "_s) + address,
                   .writes = true,
                   .possible = isFree,
                   .run = [this, address,
                           isPaused] { isPaused ? m_actions.resume(m_id, address) : m_actions.pause(m_id, address); }},
                  {.key = u"copy"_s,
                   .title = u"Copy email address"_s,
                   .icon = u"edit-copy"_s,
                   .inPalette = u"Copy "_s + address,
                   .inMenu = false,
                   .run = [this] { copyAddress(); }},
                  {.key = u"rampup"_s,
                   .title = u"Manage in Rampup"_s,
                   .icon = u"view-calendar-timeline"_s,
                   .run = [this] { openRampup(); }},
                  {.key = u"refresh"_s,
                   .title = u"Refresh"_s,
                   .icon = u"view-refresh"_s,
                   .keys = u"F5"_s,
                   .run =
                       [this] {
                         refresh();
                         m_activity.refresh();
                       }},
                  {.key = u"remove"_s,
                   .title = u"Remove "_s + address,
                   .icon = u"edit-delete"_s,
                   .writes = true,
                   .danger = true,
                   .possible = isFree,
                   .run = [this, address] { m_actions.remove(m_id, address); }}});
  return actions;
}

}  // namespace orv
