#include "app/setup/SetupChecks.h"

#include <QLocale>

#include "app/base/shownName.h"
#include "kit/models/setup/setupRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

QString wordOf(const std::optional<bool>& said) {
  if (!said) return u"unknown"_s;
  return *said ? u"yes"_s : u"no"_s;
}

}  // namespace

SetupChecks::SetupChecks(Store& whole) : Store(whole.context(), &whole) {
  connect(&m_busy, &BusySet::changed, this, &SetupChecks::changed);
}

void SetupChecks::open(const QString& runId, const QString& domain) {
  m_runId = runId;
  if (std::exchange(m_domain, domain) == domain) return;
  Q_EMIT changed();
  check();
}

void SetupChecks::closeDomain() {
  if (!std::exchange(m_domain, {}).isEmpty()) Q_EMIT changed();
}

void SetupChecks::check() {
  if (!m_domain.isEmpty()) m_tasks.start(checkTask(m_runId, m_domain));
}

Task<void> SetupChecks::checkTask(QString runId, QString domain) {
  const auto mark = m_busy.mark(domain);
  if (!mark) co_return;
  for (int reading = 0; reading < 2; ++reading) {
    // The first answer may be from before: the check that it began takes a moment.
    if (reading > 0) co_await services().clock.sleep(settling);
    try {
      m_answers[domain] = {co_await api().send(Requests::setupDomainChecks(runId, domain)), services().clock.now()};
      m_failed.remove(domain);
    } catch (const APIError& error) {
      if (error.is(APIError::Kind::cancelled)) co_return;
      m_failed.insert(domain);
    }
    Q_EMIT changed();
  }
}

const SetupChecks::Answer* SetupChecks::answer() const {
  const auto found = m_answers.constFind(m_domain);
  return found == m_answers.cend() ? nullptr : &*found;
}

QString SetupChecks::note() const {
  if (m_failed.contains(m_domain))
    return answer() ? u"The last check failed; this is the one before."_s
                    : u"Could not check right now. Press Check again."_s;
  return answer() || checking() ? QString() : u"Not checked yet."_s;
}

QString SetupChecks::timeText() const {
  return answer() ? QLocale().toString(answer()->at.toLocalTime().time(), u"HH:mm"_s) : QString();
}

QList<Choice> SetupChecks::lines() const {
  if (!answer()) return {};
  const DomainChecks::Dns& dns = answer()->checks.dns;
  return {
      {.key = wordOf(dns.mx), .label = u"MX"_s, .detail = u"Mail for the domain goes to Google."_s},
      {.key = wordOf(dns.spf), .label = u"SPF"_s, .detail = u"The SPF record allows Google to send."_s},
      {.key = wordOf(dns.dmarc), .label = u"DMARC"_s, .detail = u"A DMARC policy is published."_s},
      {.key = wordOf(dns.dkim), .label = u"DKIM"_s, .detail = u"Google’s DKIM key is published and signing."_s},
      {.key = wordOf(dns.verified), .label = u"Verified"_s, .detail = u"Google has verified the domain."_s},
  };
}

QVariantList SetupChecks::inboxes() const {
  QVariantList inboxes;
  if (!answer()) return inboxes;
  for (const DomainChecks::Inbox& inbox : answer()->checks.inboxes)
    inboxes.append(QVariant::fromValue(InboxCheck{shownName(inbox.address.section(u'@', 0, 0)) + u'@',
                                                  wordOf(inbox.imap), wordOf(inbox.photo), wordOf(inbox.connected)}));
  return inboxes;
}

}  // namespace orv
