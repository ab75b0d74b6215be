#include "app/rampup/AddToTemplate.h"

#include "app/base/shownName.h"
#include "kit/api/Format.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

ORV_DEFINE_ROW(AddableRow)

AddToTemplate::AddToTemplate(WorkspaceContext& context, Store& whole, RampupAccounts& accounts, RampupBulk& bulk)
    : Store(context, &whole), m_accounts(accounts), m_bulk(bulk) {
  connect(&m_form, &Form::changed, this, &AddToTemplate::changed);
  connect(&m_accounts, &ResourceBase::changed, this, [this] {
    if (m_form.shown()) show();
  });
}

void AddToTemplate::open(const RoadmapTemplate& into) {
  if (!canWrite()) return;
  m_templateId = into.id;
  m_templateName = RampupWords::templateName(into.name);
  m_query.clear();
  m_ticked.clear();
  m_accounts.ensureLoaded();
  show();
  m_form.show();
}

void AddToTemplate::show() {
  std::vector<AddableRow> rows;
  const QString needle = m_query.trimmed();
  m_accounts.each([&](const RampupRow& row) {
    const RampupItem& item = row.record().item;
    if (item.isPool() || (item.plan && item.plan->templateId == m_templateId)) return;
    if (!item.address.contains(needle, Qt::CaseInsensitive) && !item.displayName.contains(needle, Qt::CaseInsensitive))
      return;
    const QString now =
        item.plan ? u"On "_s + RampupWords::templateName(item.plan->templateName) : u"Not on a roadmap"_s;
    rows.push_back({row.id, item.address, now, m_ticked.contains(row.id)});
  });
  m_rows.update(std::move(rows));
  Q_EMIT changed();
}

void AddToTemplate::setQuery(const QString& query) {
  if (std::exchange(m_query, query) != query) show();
}

void AddToTemplate::toggle(const QString& id) {
  if (m_form.busy()) return;
  if (!m_ticked.remove(id)) m_ticked.insert(id);
  m_form.clearError();
  show();
}

QString AddToTemplate::submitLabel() const {
  return m_ticked.isEmpty() ? u"Add accounts"_s
                            : u"Add "_s + Format::counted(m_ticked.size(), u"account"_s, u"accounts"_s);
}

QString AddToTemplate::note() const {
  if (m_rows.count() > 0) return {};
  return m_query.trimmed().isEmpty() ? u"Every account is on this template already."_s : u"No accounts match."_s;
}

Task<void> AddToTemplate::submitTask() {
  if (!canSubmit() || !m_form.shown()) co_return;
  auto submission = m_form.begin();
  const QStringList ids(m_ticked.cbegin(), m_ticked.cend());
  if (!m_bulk.busy().isEmpty()) {
    submission.fail(u"Another change of roadmaps is under way. Try again when it has ended."_s);
    co_return;
  }
  const auto result = co_await m_bulk.restartTask(
      ids, m_templateId, [&submission](const APIError& error) { return submission.fail(error.message()); });
  if (!result) co_return;
  submission.succeed();
  QString message = Format::counted(result->ok, u"account"_s, u"accounts"_s) + u" added"_s;
  if (result->failed.isEmpty())
    message += u". Each starts on day 1 today."_s;
  else
    message +=
        u", "_s + Format::grouped(result->failed.size()) + u" skipped: "_s + shownName(result->failed.first().message);
  services().toasts.show(
      {.message = message, .tone = result->failed.isEmpty() ? Toasts::Tone::success : Toasts::Tone::standard});
}

}  // namespace orv
