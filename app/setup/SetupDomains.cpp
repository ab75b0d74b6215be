#include "app/setup/SetupDomains.h"

#include "app/base/momentText.h"
#include "app/base/shownName.h"
#include "kit/api/Format.h"
#include "kit/models/setup/setupRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

ORV_DEFINE_ROW(DomainRow)

namespace {

constexpr int inboxesADomain = 3;
/// More of what could not be read is not repeated.
constexpr qsizetype othersShown = 3;

QStringList sorted(QStringList domains) {
  domains.sort();
  return domains;
}

}  // namespace

SetupDomains::SetupDomains(QString id, Actions& actions, Resource<SetupProject>& project, SetupForm& form, Store& whole)
    : Store(whole.context(), &whole), m_id(std::move(id)), m_actions(actions), m_project(project), m_form(form) {
  connect(&project, &ResourceBase::valueChanged, this, &SetupDomains::show);
  connect(form.draft(), &FieldDraft::fieldChanged, this, [this](const QString& field) {
    if (field == "domains"_L1) show();
  });
  connect(&form, &SetupForm::typedDomainsChanged, this, &SetupDomains::changed);
  connect(&m_busy, &BusySet::changed, this, &SetupDomains::changed);
}

QString SetupDomains::countText() const {
  if (!m_project.value() || !m_project.value()->mode.isNew() || m_rows.rowCount() == 0) return {};
  return u"Three inboxes a domain, "_s + Format::grouped(qint64(inboxesADomain) * m_rows.rowCount()) + u" in all."_s;
}

void SetupDomains::setShowArchived(bool shown) {
  if (std::exchange(m_showArchived, shown) != shown) Q_EMIT changed();
}

void SetupDomains::show() {
  std::vector<DomainRow> rows, archived;
  for (const QString& domain : m_form.draft()->typed().domains) {
    const QString holder = m_registrars.value(domain);
    rows.push_back({domain, domain,
                    !holder.isEmpty()             ? shownName(holder)
                    : m_lookedUp.contains(domain) ? u"Registrar unknown"_s
                                                  : QString()});
  }
  const QDateTime now = services().clock.now();
  if (m_project.value())
    for (const SetupArchivedDomain& each : m_project.value()->archivedDomains)
      archived.push_back({each.domain, each.domain, each.reason + u" · "_s + momentText(each.archivedAt, now)});
  m_rows.update(std::move(rows));
  m_archivedRows.update(std::move(archived));
  Q_EMIT changed();
}

QString SetupDomains::add(const QString& text) {
  const PastedDomains pasted = pastedDomains(text);
  QStringList domains = m_form.draft()->typed().domains;
  const QSet<QString> known(domains.cbegin(), domains.cend());
  for (const QString& domain : pasted.domains)
    if (!known.contains(domain)) domains.append(domain);
  m_form.set(u"domains"_s, domains);
  m_problem.clear();
  if (!pasted.others.isEmpty()) {
    m_problem = u"Not a domain: "_s + pasted.others.first(std::min(othersShown, pasted.others.size())).join(u", "_s);
    if (pasted.others.size() > othersShown) m_problem += u'…';
  }
  Q_EMIT changed();
  return pasted.others.join(u' ');
}

void SetupDomains::setTyped(const QString& text) {
  if (typed() == text) return;
  m_problem.clear();
  m_form.setTypedDomains(text);
  if (text.contains(u'\n')) addTyped();
}

void SetupDomains::addTyped() {
  if (typed().isEmpty()) return;
  m_form.setTypedDomains(add(typed()));
}

void SetupDomains::remove(const QString& domain) {
  QStringList domains = m_form.draft()->typed().domains;
  if (domains.removeOne(domain)) m_form.set(u"domains"_s, domains);
}

Task<void> SetupDomains::restoreTask(QString domain) {
  const auto mark = m_busy.mark(domain);
  if (!mark || !canWrite()) co_return;
  const auto build = [id = m_id, domain] { return Requests::restoreSetupDomain(id, {domain}); };
  // The request names no version by which the form would know whose doing this is.
  const auto putBack = [this, domain](const SetupProject& answer) {
    auto& draft = *m_form.draft();
    SetupFields known = draft.base();
    if (!known.domains.contains(domain)) known.domains.append(domain);
    // In the service's order.
    if (sorted(known.domains) == sorted(answer.domains)) known.domains = answer.domains;
    draft.rebase(known, draft.version(), draft.version());
  };
  const auto restored = co_await m_actions.perform<SetupProject>({m_id + u'/' + domain, m_id}, build,
                                                                 u"Couldn’t restore "_s + domain, putBack);
  if (!restored) co_return;
  // Where the list was being changed here, that stands beside it.
  QStringList domains = m_form.draft()->typed().domains;
  if (!domains.contains(domain)) m_form.set(u"domains"_s, domains << domain);
  services().toasts.success(domain + u" is back in Domains"_s);
}

Task<void> SetupDomains::lookUpTask() {
  const QStringList domains = m_form.draft()->typed().domains;
  const auto mark = m_busy.mark(QString(lookup));
  if (!mark || domains.isEmpty() || !canWrite()) co_return;
  const auto found =
      co_await m_actions.send(Requests::lookUpRegistrars({domains}), u"Couldn’t look up the registrars."_s);
  if (!found) co_return;
  m_registrars = found->byDomain();
  m_lookedUp = QSet<QString>(domains.cbegin(), domains.cend());
  show();
}

void SetupDomains::connectRegistrar() { services().navigator.openSettings(SettingsTab::integrations); }

}  // namespace orv
