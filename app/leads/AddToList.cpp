#include "app/leads/AddToList.h"

#include "app/base/Poll.h"
#include "app/base/shownName.h"
#include "app/leads/HowMany.h"
#include "app/leads/LeadListActions.h"
#include "app/leads/LeadWords.h"
#include "kit/api/Format.h"
#include "kit/models/leads/leadListRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

/// What is still being added when the answer has come is looked after so often.
constexpr PollPace queuedPace{std::chrono::seconds(6), 5};

}  // namespace

QString listAddSummary(const QString& list, const ListAddResult& result) {
  const qint64 all = result.added + result.already + result.skipped + result.queued;
  if (all == 0) return u"No leads to add to "_s + list;
  if (result.already == all) {
    if (all == 1) return u"That lead is already in "_s + list;
    return u"All "_s + LeadWords::counted(all) + u" are already in "_s + list;
  }
  QString summary = result.added > 0    ? LeadWords::counted(result.added) + u" added to "_s + list
                    : result.queued > 0 ? u"Nothing added to "_s + list + u" yet"_s
                                        : u"Nothing new for "_s + list;
  if (result.skipped > 0) summary += u", "_s + Format::grouped(result.skipped) + u" skipped as duplicates"_s;
  if (result.already > 0) summary += u", "_s + Format::grouped(result.already) + u" already in it"_s;
  if (result.queued > 0) summary += u", "_s + Format::grouped(result.queued) + u" more on the way"_s;
  return summary;
}

AddToList::AddToList(WorkspaceContext& context, Store& whole)
    : Store(context, &whole),
      m_actions(context, m_busy,
                [&context] {
                  // Nobody knows which list has got them.
                  context.changes().stale<LeadList>();
                  context.changes().stale<ListedLeads>();
                }),
      m_list(*this, false),
      m_kept(
          context, m_form,
          [this] {
            return ListAddingFields{m_list.newName(), m_howMany, m_skipInLists, m_skipInCampaigns};
          },
          [this](const ListAddingFields& fields) { fill(fields); }) {
  connect(this, &AddToList::changed, m_kept.recovery(), [this] { m_kept.follow(); });
  connect(&m_form, &Form::changed, this, &AddToList::changed);
  connect(&m_list, &LeadListPicker::changed, this, &AddToList::changed);
}

void AddToList::setHowMany(const QString& text) {
  if (std::exchange(m_howMany, text) == text) return;
  m_form.clearError();
  Q_EMIT changed();
}

QString AddToList::howManyHelp() {
  return u"Leave empty to add every match, up to "_s + Format::grouped(HowMany::atMost) +
         u" at a time, newest first."_s;
}

std::optional<int> AddToList::number() const { return HowMany::number(m_howMany); }

QString AddToList::problem() const {
  return asksHowMany() && !m_howMany.trimmed().isEmpty() ? HowMany::problem(m_howMany) : QString();
}

void AddToList::setSkipInLists(bool skip) {
  if (std::exchange(m_skipInLists, skip) != skip) Q_EMIT changed();
}

void AddToList::setSkipInCampaigns(bool skip) {
  if (std::exchange(m_skipInCampaigns, skip) != skip) Q_EMIT changed();
}

QString AddToList::submitLabel() const { return m_list.isNew() ? u"Create list and add"_s : u"Add to list"_s; }

QString AddToList::need() const {
  if (m_list.isChosen()) return {};
  return m_list.isNew() ? u"Give the list a name"_s : u"Pick a list"_s;
}

QString AddToList::summary() const {
  return m_result ? listAddSummary(shownName(m_result->name), m_result->result) : QString();
}

QList<Choice> AddToList::result() const {
  if (!m_result) return {};
  const ListAddResult& result = m_result->result;
  QList<Choice> lines{{.key = u"added"_s,
                       .label = u"Added to "_s + shownName(m_result->name),
                       .detail = Format::grouped(result.added)}};
  const auto tell = [&lines](const QString& key, const QString& label, qint64 count) {
    if (count > 0) lines.append({.key = key, .label = label, .detail = Format::grouped(count)});
  };
  tell(u"queued"_s, u"Adding in the background"_s, result.queued);
  tell(u"already"_s, u"Already in this list"_s, result.already);
  tell(u"skipped"_s, u"Skipped: already in a campaign or another list"_s, result.skipped);
  return lines;
}

void AddToList::open(const LeadTarget& target) {
  if (!canWrite()) return;
  // Another adding goes on; its form comes back with it.
  if (m_form.busy()) return m_form.reopen();
  m_target = target;
  const auto* filter = target.filter();
  m_howMany = filter && filter->first ? QString::number(*filter->first) : QString();
  m_skipInLists = m_skipInCampaigns = false;
  m_result.reset();
  m_list.startWith({});
  m_kept.open(u"leads/tab:/adding-to-list"_s);
  m_form.show();
}

void AddToList::fill(const ListAddingFields& fields) {
  m_list.takeName(fields.newName);
  setHowMany(fields.howMany);
  setSkipInLists(fields.skipInLists);
  setSkipInCampaigns(fields.skipInCampaigns);
}

ListAddBody AddToList::body() const {
  ListAddBody body{.skipInLists = m_skipInLists, .skipInCampaigns = m_skipInCampaigns};
  if (const auto* ids = m_target.ids()) {
    body.leadIds = *ids;
    return body;
  }
  body.filter = filterBody(m_target.filter()->search);
  if (const auto limit = number()) body.limit = *limit;
  body.exact = m_target.filter()->count.exact;
  return body;
}

Task<void> AddToList::submitTask() {
  if (!canSubmit() || !m_form.shown()) co_return;
  auto submission = m_form.begin();
  auto added = co_await send(body(), &submission);
  if (!added) co_return;
  listFilled(context(), added->id);
  if (added->result.queued > 0) m_following.start(follow());
  if (submission.isShown()) {
    m_result = std::move(added);
    m_kept.taken();
  } else {
    services().toasts.success(listAddSummary(shownName(added->name), added->result));
  }
  Q_EMIT changed();
}

Task<std::optional<AddToList::Added>> AddToList::send(ListAddBody body, Form::Submission* submission) {
  const QString name = m_list.name(), id = m_list.current(), failure = u"Couldn’t add them to "_s + shownName(name);
  const auto tell = [submission](const APIError& error) { return submission->fail(error.message()); };
  if (m_list.isNew()) {
    body.name = name;
    const Stamp asked = context().changes().stamp();
    const auto made = co_await m_actions.send<ListCreated>(Requests::createLeadList(body), failure, {}, tell);
    if (!made) co_return std::nullopt;
    context().changes().publish(made->list, asked, true);
    co_return Added{made->list.id,
                    made->list.name,
                    {made->added, made->already, made->skipped, made->queued, made->list.leadCount}};
  }
  const auto result = co_await m_actions.perform<ListAddResult>(
      {id, id}, [id, body] { return Requests::addToLeadList(id, body); }, failure, {}, tell);
  if (!result) co_return std::nullopt;
  co_return Added{id, name, *result};
}

Task<void> AddToList::follow() {
  co_await poll(services().clock, queuedPace, [this] { return lookAgain(); });
}

/// Nobody says when the last of them is in.
Task<bool> AddToList::lookAgain() {
  context().changes().stale<LeadList>();
  context().changes().stale<ListedLeads>();
  co_return false;
}

void AddToList::openList() {
  if (!m_result) return;
  const QString id = m_result->id;
  m_form.cancel();
  context().openItem(Page::leads, id);
}

}  // namespace orv
