#include "app/rampup/RampupBulk.h"

#include "app/base/EachOf.h"
#include "app/base/shownName.h"
#include "kit/api/Format.h"
#include "kit/api/isoDay.h"
#include "kit/models/mailboxes/mailbox.h"
#include "kit/models/rampup/rampupDetail.h"
#include "kit/models/rampup/rampupRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

/// Of roadmaps after the action.
QString verbOf(const RampupBulkBody& body) {
  if (body.action == "pause"_L1) return u"paused"_s;
  if (body.action == "resume"_L1) return u"resumed"_s;
  if (body.action == "extend"_L1) return u"extended by "_s + QString::number(body.days.value_or(0)) + u" days"_s;
  return body.action == "restart"_L1 ? u"restarted on the template"_s : u"updated"_s;
}

/// What came of it, for who began it and may be gone.
struct Switched {
  QStringList ids;
  bool hasSessionEnded = false;
};

/// Switches one account's warm-up, in its turn; throws what the service says against it.
Task<void> switchOne(std::shared_ptr<WorkspaceContext> context, QString id, bool on,
                     std::shared_ptr<Switched> switched) {
  const auto turn = co_await context->turns().next(id);
  if (!turn) throw APIError::of(APIError::Kind::cancelled);
  WarmupSettingsPatch patch;
  patch.enabled = on;
  try {
    const RampupDetail detail = co_await context->api().send(Requests::updateWarmup(id, patch));
    context->changes().publish(RampupAccount{id, detail.item()}, context->changes().stamp(), true);
    switched->ids.append(id);
  } catch (const APIError& error) {
    if (error.is(APIError::Kind::unauthorized)) switched->hasSessionEnded = true;
    throw;
  }
}

struct Named {
  QString id;
  QString address;
};

/// On every way out, being stopped included, other screens may show what is no longer so.
struct ToldAtTheEnd {
  explicit ToldAtTheEnd(std::shared_ptr<WorkspaceContext> of) : context(std::move(of)) {}
  ToldAtTheEnd(const ToldAtTheEnd&) = delete;
  ToldAtTheEnd& operator=(const ToldAtTheEnd&) = delete;
  ~ToldAtTheEnd() { context->changes().stale<Mailbox>(); }
  std::shared_ptr<WorkspaceContext> context;
};

Task<JobOutcome> switchAll(Job* job, QList<Named> accounts, bool on, std::shared_ptr<Switched> switched) {
  const auto context = job->context().shared_from_this();
  const ToldAtTheEnd atTheEnd(context);
  QStringList ids;
  QHash<QString, QString> addresses;
  for (const Named& account : accounts) {
    ids.append(account.id);
    addresses.insert(account.id, account.address);
  }
  const auto all = ids.size();
  const auto count = [job, all](qsizetype ended) {
    job->setStage(Format::grouped(ended) + u" of "_s + RampupWords::countedMailboxes(all), ended, all);
  };
  count(0);
  const EachOutcome outcome = co_await eachOf(
      ids, [context, on, switched](const QString& id) { return switchOne(context, id, on, switched); }, count);
  JobOutcome end;
  const QString told =
      (on ? u"Warm-up resumed on "_s : u"Warm-up paused on "_s) + RampupWords::countedMailboxes(outcome.done.size());
  if (outcome.failed.isEmpty()) {
    end.title = told;
    co_return end;
  }
  end.kind = JobOutcome::Kind::failed;
  const QString first = u"Couldn’t update "_s + addresses.value(outcome.failed.first());
  end.title = outcome.done.isEmpty() ? first : told + u". "_s + first;
  if (outcome.failed.size() > 1)
    end.title += u" and "_s + Format::counted(outcome.failed.size() - 1, u"other"_s, u"others"_s);
  end.text = outcome.reason;
  for (const QString& id : outcome.failed) end.lines.append(addresses.value(id));
  // The end of the session is told by itself.
  if (switched->hasSessionEnded) end.title.clear();
  co_return end;
}

}  // namespace

RampupBulk::RampupBulk(WorkspaceContext& context, Store& whole, RampupAccounts& accounts, RoadmapEditor& editor)
    : Store(context, &whole),
      m_accounts(accounts),
      m_editor(editor),
      m_selection(accounts),
      m_actions(context, m_busy, [this] { m_accounts.load(); }) {
  connect(&m_selection, &RowSelection::changed, this, &RampupBulk::changed);
  connect(&m_busy, &BusySet::changed, this, &RampupBulk::changed);
}

QString RampupBulk::countText() const { return Format::grouped(m_selection.count()) + u" mailbox selected"_s; }
QString RampupBulk::extendLabel() { return u"Extend "_s + QString::number(extendedBy) + u" days"_s; }

Task<std::optional<RampupBulkResult>> RampupBulk::send(RampupBulkBody body, Actions::Tell tell) {
  if (!m_busy.ids().isEmpty() || !canWrite() || body.mailboxIds.isEmpty()) co_return std::nullopt;
  const auto mark = m_busy.mark(body.action);
  const auto result =
      co_await m_actions.send(Requests::bulkRampup(body), u"Couldn’t update the roadmaps."_s, {}, std::move(tell));
  // The answer only counts them.
  if (result) context().changes().stale<Mailbox>();
  co_return result;
}

void RampupBulk::tell(const RampupBulkBody& body, const RampupBulkResult& result) {
  QString message = RampupWords::countedRoadmaps(result.ok) + u' ' + verbOf(body);
  Toasts::Tone tone = Toasts::Tone::success;
  if (!result.failed.isEmpty()) {
    message +=
        u", "_s + Format::grouped(result.failed.size()) + u" skipped: "_s + shownName(result.failed.first().message);
    tone = result.ok > 0 ? Toasts::Tone::standard : Toasts::Tone::error;
  }
  services().toasts.show({.message = message, .tone = tone});
}

Task<void> RampupBulk::runTask(RampupBulkBody body) {
  body.mailboxIds = m_selection.ids();
  const auto result = co_await send(body);
  if (!result) co_return;
  m_selection.untick(body.mailboxIds);
  tell(body, *result);
}

Task<std::optional<RampupBulkResult>> RampupBulk::restartTask(QStringList ids, QString templateId, Actions::Tell tell) {
  co_return co_await send({.mailboxIds = ids, .action = u"restart"_s, .days = {}, .templateId = templateId},
                          std::move(tell));
}

void RampupBulk::edit() {
  const QStringList ids = m_selection.ids();
  QList<const RampupItem*> accounts;
  for (const QString& id : ids)
    if (const RampupRow* row = m_accounts.find(id)) accounts.append(&row->record().item);
  if (accounts.isEmpty() || !canWrite() || !busy().isEmpty()) return;
  const auto withPlan = std::ranges::find_if(accounts, [](const RampupItem* item) { return item->plan.has_value(); });
  const RampupItem* shown = withPlan == accounts.end() ? accounts.first() : *withPlan;
  const QString count = QString::number(accounts.size());
  m_editor.open({.title = u"Edit roadmaps"_s,
                 .about = u"Every one gets these stages from today."_s,
                 .submitLabel = u"Save for "_s + count + (accounts.size() == 1 ? u" account"_s : u" accounts"_s),
                 .thing = u"roadmap"_s,
                 .key = u"rampup/tab:/bulk"_s,
                 .stages = shown->plan ? shown->plan->stages : QList<RoadmapStage>(),
                 .from = isoDay(shown->today),
                 .differs = differencesOf(accounts),
                 .submit = [this, ids](const QList<RoadmapStage>& stages) { m_tasks.start(editTask(ids, stages)); }});
}

Task<void> RampupBulk::editTask(QStringList ids, QList<RoadmapStage> stages) {
  auto submission = m_editor.begin();
  const RampupBulkBody body{ids, u"edit"_s, {}, {}, stages};
  const auto result =
      co_await send(body, [&submission](const APIError& error) { return submission.fail(error.message()); });
  if (!result) co_return;
  submission.succeed();
  m_selection.untick(ids);
  tell(body, *result);
}

void RampupBulk::switchWarmup(bool on) {
  if (!canWrite() || !busy().isEmpty()) return;
  QList<Named> accounts;
  for (const QString& id : m_selection.ids())
    if (const RampupRow* row = m_accounts.find(id)) accounts.append({id, shownName(row->record().item.address)});
  if (accounts.isEmpty()) return;
  const QString name =
      (on ? u"Resuming warm-up on "_s : u"Pausing warm-up on "_s) + RampupWords::countedMailboxes(accounts.size());
  const auto switched = std::make_shared<Switched>();
  m_switching.emplace(m_busy.mark(on ? u"resume-warmup"_s : u"pause-warmup"_s));
  const Job* switching = services().jobs.start(
      {.name = name, .stopped = u"Accounts that were done stay so."_s}, context().shared_from_this(),
      [accounts, on, switched](Job& job) { return switchAll(&job, accounts, on, switched); });
  // Those that failed, or were not come to, stay ticked, to be tried again.
  connect(switching, &Job::ended, this, [this, switched] {
    m_switching.reset();
    m_selection.untick(switched->ids);
  });
}

/// The job goes on, or is cut off without a word.
void RampupBulk::close() {
  m_switching.reset();
  Store::close();
}

QString differencesOf(const QList<const RampupItem*>& accounts) {
  QSet<QString> templates;
  qsizetype without = 0, lengths = 0, stages = 0;
  const RoadmapPlan* first = nullptr;
  for (const RampupItem* item : accounts) {
    if (!item->plan) {
      ++without;
      continue;
    }
    templates.insert(item->plan->templateName);
    if (!first) first = &*item->plan;
    lengths += item->plan->length != first->length;
    stages += item->plan->stages != first->stages;
  }
  QStringList differs;
  if (stages > 0) differs.append(u"their stages"_s);
  if (lengths > 0) differs.append(u"their length"_s);
  if (templates.size() > 1) differs.append(u"their template"_s);
  QString told;
  if (!differs.isEmpty())
    told = u"These accounts differ in "_s + differs.join(u", "_s) + u". Saving makes them the same."_s;
  if (without > 0)
    told += (told.isEmpty() ? QString() : u" "_s) + Format::counted(without, u"of them is"_s, u"of them are"_s) +
            u" not on a roadmap."_s;
  return told;
}

}  // namespace orv
