#include "tests/soak/Comparison.h"

#include <QAbstractItemModel>
#include <QMetaProperty>
#include <QPointer>

#include "app/base/Choice.h"
#include "app/base/Draft.h"
#include "app/base/PagedListBase.h"
#include "app/base/Pages.h"
#include "app/base/RowSelection.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::soak {
namespace {

/// Closes what is open, forgets what was typed, shows what waits to be shown.
constexpr const char* endings[] = {"clear",       "cancel", "dismiss",      "discard", "closeInbox", "closeDomain",
                                   "closeChecks", "keep",   "clearFilters", "reset",   "showAll",    "showNewMail"};

bool has(const QObject& object, const char* signature) { return object.metaObject()->indexOfMethod(signature) >= 0; }

QMap<QString, QObject*> byPath(const QList<Part>& parts) {
  QMap<QString, QObject*> objects;
  for (const Part& part : parts) objects.insert(part.path, part.object);
  return objects;
}

/// The groups of filters that are unfolded.
void unfoldAs(QObject& object, const QObject& other) {
  if (!has(object, "setOpen(QString,bool)")) return;
  for (const Choice& group : valueOf(other, "groups").value<QList<Choice>>())
    QMetaObject::invokeMethod(&object, "setOpen", Q_ARG(QString, group.key), Q_ARG(bool, group.ticked));
}

void sortAs(QObject& object, const QObject& other, const char* method, const char* key, const char* descending) {
  const QVariant wanted = valueOf(other, key), down = valueOf(other, descending);
  if (wanted.isValid() && (valueOf(object, key) != wanted || valueOf(object, descending) != down))
    QMetaObject::invokeMethod(&object, method, Q_ARG(QString, wanted.toString()), Q_ARG(bool, down.toBool()));
}

/// The same as the other by calling `method` with what it has chosen.
void chooseAs(QObject& object, const QObject& other, const char* method, const char* property) {
  const QVariant wanted = valueOf(other, property);
  if (wanted.isValid() && has(object, QByteArray(method) + "(QString)") && valueOf(object, property) != wanted)
    QMetaObject::invokeMethod(&object, method, Q_ARG(QString, wanted.toString()));
}

/// The same of what is gone through one by one.
void stepAs(QObject& object, const QObject& other) {
  if (!has(object, "goForward()") || !has(object, "goBack()")) return;
  const QVariant wanted = valueOf(other, "picked");
  while (valueOf(object, "hasPrevious").toBool()) QMetaObject::invokeMethod(&object, "goBack");
  while (valueOf(object, "picked") != wanted && valueOf(object, "hasNext").toBool())
    QMetaObject::invokeMethod(&object, "goForward");
}

/// The quotations that are unfolded, and the domains that are folded.
void foldAs(QObject& object, const QObject& other) {
  if (!has(object, "fold(QString)")) return;
  const auto openIn = [](const QObject& page) {
    QSet<QString> open;
    for (const auto& [model, flag, id] : {std::tuple{"messages", "open", "foldId"}, {"runRows", "folded", "domain"}}) {
      const auto* rows = valueOf(page, model).value<QAbstractItemModel*>();
      for (int row = 0; rows && row < rows->rowCount(); ++row) {
        const auto cell = [&](const char* role) { return rows->index(row, 0).data(rows->roleNames().key(role)); };
        if (cell(flag).toBool()) open.insert(cell(id).toString());
      }
    }
    return open;
  };
  const QSet<QString> here = openIn(object), there = openIn(other);
  for (const QString& id : (here - there) + (there - here))
    QMetaObject::invokeMethod(&object, "fold", Q_ARG(QString, id));
}

/// Who holds a domain is shown to who has asked: where one of them has, both ask.
void lookUpAlike(QObject& object, QObject& other) {
  auto* const rows = valueOf(object, "rows").value<QObject*>();
  auto* const others = valueOf(other, "rows").value<QObject*>();
  if (!has(object, "lookUp()") || !rows || !others || differences(readingOf(*rows), readingOf(*others)).isEmpty())
    return;
  for (QObject* one : {&object, &other}) QMetaObject::invokeMethod(one, "lookUp");
}

/// The lines of a chart that are switched off.
void seriesAs(QObject& object, const QObject& other) {
  const char* const method = has(object, "toggleSeries(QString)") ? "toggleSeries" : "toggle";
  if (!has(object, QByteArray(method) + "(QString)")) return;
  const QVariantList series = valueOf(object, "series").toList(), wanted = valueOf(other, "series").toList();
  for (qsizetype i = 0; i < std::min(series.size(), wanted.size()); ++i) {
    const QVariantMap one = series[i].toMap();
    if (one.value(u"shown"_s) != wanted[i].toMap().value(u"shown"_s))
      QMetaObject::invokeMethod(&object, method, Q_ARG(QString, one.value(u"key"_s).toString()));
  }
}

}  // namespace

QStringList Comparison::run(bool refreshing, std::optional<Page> only) {
  m_refreshing = refreshing;
  m_only = only;
  for (const QVariant& one : m_shown.app().workspaces()) {
    const QString slug = one.toMap().value(u"slug"_s).toString();
    // One that was left with something unsaved in it stays until that is thrown away.
    const auto kept = m_shown.app().journal().entries();
    const bool isKept =
        std::ranges::find(kept, slug, [](const auto& entry) { return entry.key.workspace; }) != kept.end();
    if (!isKept && !m_shown.app().sessionOrder().contains(slug)) continue;
    for (SoakClient* client : {&m_shown, &m_held}) {
      client->app().openWorkspace(slug);
      // Both see the same mail, and both read it.
      client->app().notifier()->setActive(true);
    }
    m_rest();
    throwAway(slug);
    comparePages(slug);
  }
  return m_lines;
}

void Comparison::comparePages(const QString& workspace) {
  for (const auto& info : Pages::all()) {
    const Page page = info.page;
    if (m_only && page != *m_only) continue;
    if (page == Page::settings) {
      for (const auto& tab : Pages::allTabs())
        compare(workspace + u" settings "_s + Pages::name(tab.tab),
                [tab = tab.tab](Router& router) { router.openSettings(tab); });
      continue;
    }
    compare(workspace + u' ' + Pages::name(page), [page](Router& router) { router.open(page); });
    for (const QString& id : m_shown.app().session()->itemOrder(page))
      compare(workspace + u' ' + Pages::name(page) + u' ' + id,
              [page, id](Router& router) { router.openItem(page, id); });
  }
}

void Comparison::compare(const QString& name, const std::function<void(Router&)>& go) {
  for (SoakClient* client : {&m_shown, &m_held}) {
    go(*client->app().router());
    client->look();
  }
  if (!m_shown.app().openPage()->store() || !m_held.app().openPage()->store()) {
    m_lines.append(name + u": no such page"_s);
    return;
  }
  putAway();
  ensureLoaded();
  m_rest();
  // What an earlier session had left comes back with what it was typed on.
  putAway();
  align();
  // Of a page in sections each has its own "Refresh".
  if (m_refreshing)
    for (const Part& part : m_shown.page())
      if (auto* store = qobject_cast<Store*>(part.object); store && !part.isHidden) store->refresh();
  m_rest();
  // What was opened in the one as in the other has things of its own to be put away.
  align();
  askAlike();
  m_rest();
  readAsFar();
  const Reading shown = readingOf(*m_shown.app().openPage()->store());
  const Reading held = readingOf(*m_held.app().openPage()->store());
  for (const QString& line : differences(shown, held)) m_lines.append(name + u": "_s + line);
  ++m_pages;
  m_fields += held.size();
}

/// What was typed about records of which no page is open any more, and is kept until somebody throws it away.
void Comparison::throwAway(const QString& workspace) {
  AppModel& app = m_shown.app();
  for (const Journal::Entry& entry : app.journal().entries()) {
    const QStringList name = entry.key.name.split(u'/');
    const auto page = Pages::pageNamed(name.value(0));
    const bool isOfRecord = name.size() > 2 && !name[1].startsWith("tab:"_L1);
    if (entry.key.workspace != workspace || !page || !isOfRecord) continue;
    app.router()->openItem(*page, name[1]);
    m_shown.look();
    m_rest();
    putAway();
  }
}

void Comparison::putAway() {
  for (const Part& part : m_shown.page()) {
    for (const char* ending : endings)
      if (has(*part.object, QByteArray(ending) + "()")) QMetaObject::invokeMethod(part.object, ending);
    if (auto* selection = qobject_cast<RowSelection*>(part.object)) selection->clear();
  }
}

// Nothing puts away a conversation or an email of a sequence that is open, what belongs to one draft is not to be given
// to another, and of each database the person has chosen other columns.
void Comparison::openAlike() {
  const auto shown = byPath(m_shown.page());
  // What belongs to the one that was open goes meanwhile.
  QList<std::pair<QString, QPointer<QObject>>> held;
  for (const Part& part : m_held.page()) held.append({part.path, part.object});
  for (const auto& [path, object] : held) {
    const QObject* const wanted = shown.value(path);
    if (!wanted || !object) continue;
    chooseAs(*object, *wanted, "open", "openId");
    chooseAs(*object, *wanted, "chooseDatabase", "database");
    if (const QVariant place = valueOf(*wanted, "place"); place.isValid() && has(*object, "selectPlace(int)"))
      QMetaObject::invokeMethod(object, "selectPlace", Q_ARG(int, place.toInt()));
    chooseAs(*object, *wanted, "showVariant", "variantKey");
    stepAs(*object, *wanted);
  }
  m_rest();
}

void Comparison::align() {
  openAlike();
  const auto held = byPath(m_held.page());
  for (const Part& part : m_shown.page()) {
    QObject* const other = held.value(part.path);
    if (!other) continue;
    const QMetaObject* type = part.object->metaObject();
    for (int i = QObject::staticMetaObject.propertyCount(); i < type->propertyCount(); ++i) {
      const QMetaProperty property = type->property(i);
      if (!property.isWritable() || qstrcmp(property.name(), "watched") == 0) continue;
      const QVariant value = property.read(other);
      if (property.read(part.object) != value) property.write(part.object, value);
    }
    foldAs(*part.object, *other);
    chooseAs(*part.object, *other, "chooseRange", "range");
    chooseAs(*part.object, *other, "chooseStyle", "style");
    seriesAs(*part.object, *other);
    lookUpAlike(*part.object, *other);
    unfoldAs(*part.object, *other);
    sortAs(*part.object, *other, "sort", "sortKey", "sortDescending");
    sortAs(*part.object, *other, "sortArchived", "archivedSortKey", "archivedSortDescending");
  }
}

/// Every tab, as far as what stands in it loads by itself.
void Comparison::ensureLoaded() {
  for (SoakClient* client : {&m_shown, &m_held})
    for (const Part& part : client->page())
      if (auto* store = qobject_cast<Store*>(part.object); store && !part.isHidden) store->ensureLoaded();
}

/// What one of them has asked for both ask for, and what failed again: so does whoever opens it.
void Comparison::askAlike() {
  ensureLoaded();
  const auto shown = byPath(m_shown.page()), held = byPath(m_held.page());
  const auto ask = [](const QMap<QString, QObject*>& first, const QMap<QString, QObject*>& second) {
    for (auto one = first.begin(); one != first.end(); ++one) {
      auto* const resource = qobject_cast<ResourceBase*>(one.value());
      auto* const other = qobject_cast<ResourceBase*>(second.value(one.key()));
      if (resource && other && (resource->isAsked() || other->isAsked())) resource->ensureLoaded();
    }
  };
  ask(shown, held);
  ask(held, shown);
}

/// A list reads again what somebody sees of it; here it is seen whole, before it is compared.
void Comparison::seeAll() {
  for (SoakClient* client : {&m_shown, &m_held})
    for (const Part& part : client->page())
      if (auto* const list = qobject_cast<PagedListBase*>(part.object)) list->see(0, list->rows()->count());
  m_rest();
}

void Comparison::readAsFar() {
  constexpr int pagesAtMost = 20;
  for (int page = 0; page < pagesAtMost; ++page) {
    seeAll();
    bool reads = false;
    const auto held = byPath(m_held.page());
    for (const Part& part : m_shown.page()) {
      auto* const list = qobject_cast<PagedListBase*>(part.object);
      auto* const other = qobject_cast<PagedListBase*>(held.value(part.path));
      if (!list || !other || list->readCount() == other->readCount()) continue;
      PagedListBase* const shorter = list->readCount() < other->readCount() ? list : other;
      if (!shorter->canLoadMore()) continue;
      shorter->loadMore();
      reads = true;
    }
    if (!reads) return;
    m_rest();
  }
}

}  // namespace orv::soak
