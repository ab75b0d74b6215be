#include "app/rampup/RampupStore.h"

#include "app/base/EnumName.h"
#include "app/base/recordActions.h"
#include "kit/api/Format.h"
#include "kit/async/background.h"
#include "kit/models/mailboxes/mailbox.h"
#include "kit/models/mailboxes/mailboxBrand.h"
#include "kit/models/rampup/rampupRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

using RampupWords::Phase;

constexpr std::array allPhases{Phase::pending, Phase::warmup, Phase::rampup, Phase::live};

}  // namespace

RampupStore::RampupStore(WorkspaceContext& context)
    : Store(context),
      m_list(*this, [this](const PageRequest& part) { return readPart(part); },
             {.failed = u"Couldn’t load the roadmaps"_s,
              .whole = true,
              .matches =
                  [this](const RampupRow& row) {
                    return m_filter == "all"_L1 || enumName(row.prepared().phase) == m_filter;
                  }}),
      m_editor(context),
      m_actions(context, *this),
      m_details(context, *this),
      m_bulk(context, *this, m_list, m_editor),
      m_templates(context, *this, m_editor),
      m_adding(context, *this, m_list, m_bulk) {
  connect(&m_list, &ResourceBase::valueChanged, this, &RampupStore::count);
  connect(&m_list, &ResourceBase::changed, this, &RampupStore::changed);
  connect(&m_list, &PagedListBase::rested, m_bulk.selection(), &RowSelection::prune);
  connect(&m_templates, &RoadmapTemplates::changed, this, &RampupStore::changed);
  connect(&m_actions, &RoadmapActions::busyChanged, this, &RampupStore::changed);
  connect(this, &Store::roleChanged, this, &RampupStore::changed);
  connect(this, &Store::left, &m_editor, &RoadmapEditor::leave);
  // What is left of an answer says nothing any more once somebody knows better, or once it has been taken over.
  connect(&m_list, &PagedListBase::rested, this, [this] { m_rest = {}; });
  context.changes().watch<RampupAccount>(this, [this](const Change<RampupAccount>& change) {
    if (change.kind == Change<RampupAccount>::Kind::stale) m_rest = {};
  });
  context.changes().watch<Mailbox>(this, [this](const Change<Mailbox>& change) { followMailbox(change); });
  m_templates.onAddAccounts = [this](const RoadmapTemplate& into) { m_adding.open(into); };
}

Task<RampupPart> RampupStore::readPart(PageRequest wanted) {
  const qsizetype from = wanted.cursor ? wanted.cursor->toLongLong() : 0;
  // The window draws between one part and the next, and somebody may come to know better meanwhile.
  if (from > 0 && m_rest.taken == from) co_await inBackground<bool>([] { return true; });
  if (from == 0 || m_rest.taken != from) {
    const Stamp asked = context().changes().stamp();
    m_rest = {(co_await api().send(Requests::listRampup())).items, from, asked};
    m_rest.taken = std::min(from, m_rest.items.size());
  }
  co_return m_rest.next();
}

/// Accounts that come, go, stop or go on elsewhere are others here. What is done here is known here.
void RampupStore::followMailbox(const Change<Mailbox>& change) {
  using Kind = Change<Mailbox>::Kind;
  if (change.kind == Kind::gone && m_list.contains(change.id)) return m_list.takeOut({change.id});
  const bool anyOfThem = change.kind == Kind::stale && change.id.isEmpty();
  if (!anyOfThem && !(change.kind == Kind::is && change.acted)) return;
  m_rest = {};
  m_list.markStale();
}

void RampupStore::count() {
  m_counts.clear();
  qint64 onRoadmap = 0, sent = 0, planned = 0, paused = 0;
  m_list.each([&](const RampupRow& row) {
    const RampupItem& item = row.record().item;
    ++m_counts[enumName(row.prepared().phase)];
    onRoadmap += item.plan.has_value();
    paused += item.plan && item.plan->isProtected();
    sent += item.sent.warmup;
    planned += item.sent.warmupPlanned.value_or(0);
  });
  m_summary = Format::grouped(onRoadmap) + u" on a roadmap · "_s + Format::grouped(sent) + u" of "_s +
              Format::grouped(planned) + u" warm-up emails sent today"_s;
  m_protected = paused > 0 ? Format::grouped(paused) + u" paused by auto-protect"_s : QString();
  if (!m_list.head()) m_summary.clear();
  Q_EMIT changed();
  Q_EMIT foundChanged();
}

void RampupStore::setFilter(const QString& filter) {
  if (std::exchange(m_filter, filter) == filter) return;
  m_list.arrange();
  Q_EMIT changed();
  Q_EMIT moved();
}

void RampupStore::sort(const QString& key, bool descending) {
  m_sort = sortBy(key, descending);
  m_list.setOrder(orderOf(m_sort));
  Q_EMIT changed();
}

QList<Choice> RampupStore::phases() const {
  const bool isKnown = m_list.head() != nullptr;
  QList<Choice> phases{{.key = u"all"_s, .label = u"All"_s, .count = isKnown ? m_list.readCount() : -1}};
  for (const Phase phase : allPhases)
    phases.append({.key = enumName(phase),
                   .label = RampupWords::label(phase),
                   .count = isKnown ? m_counts.value(enumName(phase)) : -1});
  return phases;
}

void RampupStore::setShowTemplates(bool shown) {
  if (std::exchange(m_showTemplates, shown) == shown) return;
  Q_EMIT changed();
  Q_EMIT moved();
}

QList<Choice> RampupStore::sections() const {
  return {{.key = u"accounts"_s, .label = u"Accounts"_s},
          {.key = u"templates"_s, .label = u"Templates"_s, .count = m_templates.count()}};
}

QString RampupStore::countText() const {
  if (!m_list.head()) return {};
  const QString all = Format::counted(m_list.readCount(), u"account"_s, u"accounts"_s);
  return m_list.shownCount() == m_list.readCount() ? all : Format::grouped(m_list.shownCount()) + u" of "_s + all;
}

const RampupItem* RampupStore::find(const QString& id) const {
  const RampupRow* row = m_list.find(id);
  return row ? &row->record().item : nullptr;
}

void RampupStore::ensureLoaded() {
  Store::ensureLoaded();
  m_templates.ensureLoaded();
}

void RampupStore::refresh() {
  if (m_showTemplates) return m_templates.refresh();
  m_details.forget();
  m_list.load();
}

QList<FoundRecord> RampupStore::found() const {
  QList<FoundRecord> found;
  m_list.each([&found](const RampupRow& row) {
    const RampupItem& item = row.record().item;
    found.append({row.id, item.address, RampupWords::standing(item).text});
  });
  return found;
}

PagePlace RampupStore::where() const {
  if (!m_showTemplates) return {.tab = {}, .value = m_filter == "all"_L1 ? QString() : m_filter};
  return {.tab = m_templates.showArchived() ? u"archive"_s : u"templates"_s, .value = {}};
}

void RampupStore::goTo(const PagePlace& place) {
  setShowTemplates(!place.tab.isEmpty());
  m_templates.setShowArchived(place.tab == "archive"_L1);
  if (place.tab.isEmpty()) setFilter(place.value.isEmpty() ? u"all"_s : place.value);
}

void RampupStore::begin() {
  setShowTemplates(false);
  m_templates.setShowArchived(false);
}

QList<PageAction> RampupStore::offeredOnPage() {
  QList<PageAction> actions = Store::offered({});
  actions.append({.key = u"accounts"_s,
                  .title = u"Accounts on roadmaps"_s,
                  .icon = u"view-calendar-timeline"_s,
                  .inMenu = false,
                  .anywhere = true,
                  .run = [this] { setShowTemplates(false); }});
  actions.append({.key = u"templates"_s,
                  .title = u"Roadmap templates"_s,
                  .icon = u"view-calendar-timeline"_s,
                  .inMenu = false,
                  .anywhere = true,
                  .run = [this] { setShowTemplates(true); }});
  actions.append(newAction(u"New template"_s, m_templates.createHint(), [this] {
    setShowTemplates(true);
    m_templates.setShowArchived(false);
    m_templates.beginCreate();
  }));
  return actions;
}

QList<PageAction> RampupStore::offered(const QString& record) {
  if (record.isEmpty()) return offeredOnPage();
  const RampupItem* item = find(record);
  if (!item) return {};
  const bool isFree = !m_actions.busy().contains(record);
  const bool isPaused = item->plan && item->plan->isPaused(), goesOn = item->plan && !isPaused && !item->plan->isDone();
  const bool isWarm = item->settings.enabled;
  const QString address = item->address;
  QList<PageAction> actions{{.key = u"open"_s,
                             .title = u"Open roadmap"_s,
                             .icon = u"view-calendar-timeline"_s,
                             .anywhere = true,
                             .run = [this, record] { open(record); }}};
  if (goesOn)
    actions.append({.key = u"pause"_s,
                    .title = u"Pause roadmap"_s,
                    .icon = u"media-playback-pause"_s,
                    .writes = true,
                    .possible = isFree,
                    .run = [this, record] { m_actions.pause(record); }});
  if (isPaused)
    actions.append({.key = u"resume"_s,
                    .title = u"Resume roadmap"_s,
                    .icon = u"media-playback-start"_s,
                    .writes = true,
                    .possible = isFree,
                    .run = [this, record] { m_actions.resume(record); }});
  actions.append(
      {.key = u"warmup"_s,
       .title = isWarm ? u"Pause warmup"_s : u"Resume warmup"_s,
       .icon = isWarm ? u"media-playback-pause"_s : u"media-playback-start"_s,
       .writes = true,
       .possible = isFree,
       .run = [this, record, address, isWarm] { m_tasks.start(m_actions.warmupTask(record, address, !isWarm)); }});
  actions.append({.key = u"account"_s,
                  .title = u"Open account"_s,
                  .icon = u"mail-message"_s,
                  .possible = !item->isPool(),
                  .anywhere = true,
                  .run = [this, record] { context().openItem(Page::accounts, record); }});
  return actions;
}

}  // namespace orv
