#include "app/accounts/AccountBulk.h"

#include <QRegularExpression>

#include "app/accounts/AccountRows.h"
#include "app/accounts/AccountTexts.h"
#include "app/accounts/RestoringJob.h"
#include "app/base/RowSelection.h"
#include "app/base/shownName.h"
#include "kit/api/Format.h"
#include "kit/api/wholeNumber.h"
#include "kit/models/mailboxes/mailboxRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

/// What is said of an action.
struct Words {
  QString action;
  /// "3 accounts paused".
  QString done;
  /// "Couldn’t pause 3 accounts".
  QString cannot;
  /// Empty where nothing has to be told.
  QString input = {};
  QString submit = {};
  QString label = {};
};

const Words& wordsOf(const QString& action) {
  static const QList<Words> all{
      {u"pause"_s, u"paused"_s, u"Couldn’t pause "_s},
      {u"resume"_s, u"resumed"_s, u"Couldn’t resume "_s},
      {u"verify"_s, u"being tested"_s, u"Couldn’t test "_s},
      {u"set_limit"_s, u"updated"_s, u"Couldn’t update "_s, u"number"_s, u"Set daily limit"_s, u"Emails a day"_s},
      {u"set_sending_gap"_s, u"updated"_s, u"Couldn’t update "_s, u"number"_s, u"Set minimum wait"_s, u"Minutes"_s},
      {u"add_tags"_s, u"tagged"_s, u"Couldn’t tag "_s, u"tags"_s, u"Add tags"_s, u"Tags"_s},
      {u"remove_tags"_s, u"untagged"_s, u"Couldn’t untag "_s, u"tags"_s, u"Remove tags"_s, u"Tags"_s},
      {u"set_tracking_domain"_s, {}, u"Couldn’t update "_s, u"host"_s, u"Set tracking domain"_s, u"Tracking domain"_s},
      {u"add_to_bison"_s, u"on the way to Bison"_s, u"Couldn’t add "_s, u"tags"_s, u"Add to Bison"_s, u"Tags"_s},
      {u"delete"_s, {}, u"Couldn’t remove "_s},
  };
  static const Words none{};
  const auto found = std::ranges::find(all, action, &Words::action);
  return found == all.end() ? none : *found;
}

constexpr QLatin1String bulk("bulk"), placeholder("{domain}"), sampleDomain("example.com");

/// Deliberately not the pattern of an account's own setting, nor that of a setup's domains: each asks for another
/// shortest length.
bool isTrackingHost(const QString& host) {
  static const QRegularExpression pattern(
      QRegularExpression::anchoredPattern(u"^(?=.{1,253}$)([a-z0-9]([a-z0-9-]{0,61}[a-z0-9])?\\.)+[a-z]{2,63}$"_s));
  return pattern.match(QString(host).replace(placeholder, sampleDomain)).hasMatch();
}

QString countedSelected(qint64 count) { return Format::counted(count, u"selected account"_s, u"selected accounts"_s); }

QString doneText(const MailboxBulkBody& body, const MailboxBulkResult& result) {
  const QString accounts = countedAccounts(result.ok);
  if (body.action == "delete"_L1)
    return u"Removed "_s + accounts + (result.ok == 1 ? u". It’s in Archived."_s : u". They’re in Archived."_s);
  if (body.action != "set_tracking_domain"_L1) return accounts + u' ' + wordsOf(body.action).done;
  if (body.trackingDomain.value_or(QString()).isEmpty()) return u"Tracking domain removed from "_s + accounts;
  return u"Tracking domain set on "_s + accounts + u", "_s + Format::grouped(result.verified.value_or(0)) +
         u" with its CNAME verified"_s;
}

}  // namespace

AccountBulk::AccountBulk(Store& whole, const RowSelection& selection, KnownTags knownTags, Tell ended)
    : Store(whole.context(), &whole),
      m_selection(selection),
      m_knownTags(std::move(knownTags)),
      m_ended(std::move(ended)),
      m_actions(whole.context(), m_busy,
                [this] {
                  context().changes().stale<Mailbox>();
                  context().changes().stale<Archived<Mailbox>>();
                }),
      m_kept(
          whole.context(), m_form,
          [this] {
            return AccountBulkFields{m_text, m_tags};
          },
          [this](const AccountBulkFields& fields) {
            setText(fields.text);
            setTags(fields.tags);
          }) {
  connect(this, &AccountBulk::changed, m_kept.recovery(), [this] { m_kept.follow(); });
  connect(&m_form, &Form::changed, this, &AccountBulk::changed);
}

QString AccountBulk::input() const { return wordsOf(m_action).input; }

QString AccountBulk::submitLabel() const { return wordsOf(m_action).submit; }

QString AccountBulk::label() const { return wordsOf(m_action).label; }

QString AccountBulk::title() const {
  if (m_action == "set_limit"_L1) return u"Daily limit"_s;
  return m_action == "set_sending_gap"_L1 ? u"Minimum wait"_s : submitLabel();
}

QString AccountBulk::intro() const {
  const QString selected = countedSelected(m_ids.size());
  if (m_action == "set_limit"_L1) return u"Campaign emails each of the "_s + selected + u" can send a day."_s;
  if (m_action == "set_sending_gap"_L1)
    return u"Least time between two campaign emails from each of the "_s + selected +
           u", across their campaigns. 0 leaves it to each campaign."_s;
  if (m_action == "add_tags"_L1) return u"To the "_s + selected;
  if (m_action == "add_to_bison"_L1)
    return selected +
           u" into Email Bison, warm-up on, with these tags there. Each gets the Bison tag here once it’s in."_s;
  return m_action == "set_tracking_domain"_L1 ? u"For the "_s + selected + u". Leave it empty to remove it."_s
                                              : selected;
}

QString AccountBulk::help() const {
  if (m_action != "set_tracking_domain"_L1) return {};
  return u"{domain} is each account’s own email domain: for jo@"_s + sampleDomain + u" the host is track."_s +
         sampleDomain + u". Each host needs a CNAME record to "_s + trackingHost + u'.';
}

int AccountBulk::most() const { return m_action == "set_limit"_L1 ? mostSendLimit : mostSendingGap; }

void AccountBulk::setText(const QString& text) {
  if (std::exchange(m_text, text) == text) return;
  m_problem.clear();
  m_form.clearError();
  Q_EMIT changed();
}

QList<Choice> AccountBulk::tags() const {
  QList<Choice> tags;
  for (const QString& tag : m_tags) tags.append({.key = tag, .label = tag});
  return tags;
}

void AccountBulk::addTags(const QStringList& texts) { setTags(m_tags + texts); }

void AccountBulk::removeTag(const QString& tag) {
  QStringList tags = m_tags;
  tags.removeAll(tag);
  setTags(tags);
}

void AccountBulk::setTags(const QStringList& tags) {
  const QStringList kept = normalisedTags(tags);
  const bool areTooMany = kept.size() > mostTags;
  m_tags = kept.mid(0, mostTags);
  m_problem = areTooMany ? tooManyTags() : QString();
  m_form.clearError();
  Q_EMIT changed();
}

bool AccountBulk::canSubmit() const {
  if (m_form.busy() || !m_running.isEmpty()) return false;
  // To hand accounts over it takes no tags.
  return input() != "tags"_L1 || m_action == "add_to_bison"_L1 || !m_tags.isEmpty();
}

void AccountBulk::act(const QString& action) {
  const Words& words = wordsOf(action);
  if (words.action.isEmpty() || m_selection.ids().isEmpty() || !m_running.isEmpty() || !canWrite()) return;
  if (words.input.isEmpty()) {
    m_tasks.start(send({.action = action, .ids = m_selection.ids()}, false));
    return;
  }
  m_action = action;
  m_ids = m_selection.ids();
  m_text = words.input == "host"_L1 ? u"track."_s + placeholder : QString();
  m_tags.clear();
  m_problem.clear();
  m_kept.open(u"accounts/tab:/"_s + action);
  m_form.show();
}

void AccountBulk::submit() {
  if (!canSubmit()) return;
  MailboxBulkBody body{.action = m_action, .ids = m_ids};
  if (fill(body)) m_tasks.start(send(std::move(body), true));
  Q_EMIT changed();
}

/// Puts what was typed into the request; false when it cannot be sent so.
bool AccountBulk::fill(MailboxBulkBody& body) {
  if (input() == "tags"_L1) {
    if (!m_tags.isEmpty()) body.tags = m_tags;
  } else if (input() == "number"_L1) {
    m_problem = numberProblem(m_text, most());
    (m_action == "set_limit"_L1 ? body.sendLimit : body.sendingGapMinutes) = wholeNumber(m_text, 0, most());
  } else {
    const QString host = normalisedHost(m_text);
    if (!host.isEmpty() && !isTrackingHost(host))
      m_problem = u"Enter a host name like track."_s + sampleDomain + u", or track."_s + placeholder;
    body.trackingDomain = host;
  }
  return m_problem.isEmpty();
}

Task<void> AccountBulk::send(MailboxBulkBody body, bool fromForm) {
  const auto mark = m_busy.mark(bulk);
  if (!mark) co_return;
  struct Running {
    AccountBulk& bulk;
    ~Running() {
      bulk.m_running.clear();
      Q_EMIT bulk.changed();
    }
  } running{*this};
  m_running = body.action;
  std::optional<Form::Submission> submission;
  if (fromForm) submission.emplace(&m_form);
  Q_EMIT changed();
  const QString bison = body.action == "add_to_bison"_L1 ? u" to Bison"_s : QString();
  const auto result = co_await m_actions.send<MailboxBulkResult>(
      Requests::bulkMailboxes(body), wordsOf(body.action).cannot + countedAccounts(body.ids.size()) + bison, {},
      [&submission](const APIError& error) { return submission && submission->fail(error.message()); });
  if (!result) co_return;
  if (submission) submission->succeed();
  tell(body, *result);
}

void AccountBulk::tell(const MailboxBulkBody& body, const MailboxBulkResult& result) {
  Ended ended{body.action, body.ids};
  QSet<QString> failed;
  for (const auto& one : result.failed) failed.insert(one.id);
  ended.done.removeIf([&failed](const QString& id) { return failed.contains(id); });
  QString said = doneText(body, result);
  if (!result.failed.isEmpty())
    said += u' ' + Format::grouped(result.failed.size()) + u" failed: "_s + shownName(result.failed.first().message);
  Toasts::Message toast{.message = said, .tone = result.failed.isEmpty() ? Toasts::Tone::success : Toasts::Tone::error};
  if (body.action == "delete"_L1 && !ended.done.isEmpty()) {
    toast.actionLabel = u"Undo"_s;
    toast.action = undoBulkRemoval(context(), ended.done);
    toast.accumulates = true;
  }
  services().toasts.show(toast);
  m_ended(ended);
}

}  // namespace orv
