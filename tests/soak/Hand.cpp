#include "tests/soak/Hand.h"

#include <QAbstractItemModel>
#include <QMetaProperty>
#include <QSet>

#include "app/base/Draft.h"
#include "app/base/Form.h"
#include "app/base/PagedListBase.h"
#include "app/base/Pages.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::soak {
namespace {

/// Called by what shows a store, not by the person.
const QSet<QByteArray> notForHands{"appear", "disappear", "act", "menu", "watched"};
/// Would end the workspace that everything else is about, or the person's place in it.
const QSet<QByteArray> leftAlone{"deleteWorkspace"};

/// What opens a dialog, of those that are closed.
const QSet<QByteArray> openers{"ask", "dropFile", "look", "open", "peek", "show", "take"};

/// The button is grey.
bool isGrey(const QObject& object, const QByteArray& method) {
  if (method == "submit" && (!valueOf(object, "canSubmit", true).toBool() || valueOf(object, "busy").toBool()))
    return true;
  return method == "save" && (!valueOf(object, "canSave", true).toBool() || !valueOf(object, "dirty", true).toBool());
}

const FieldDraft* draftOf(const QObject& object) {
  const auto* draft = qobject_cast<const FieldDraft*>(&object);
  return draft ? draft : qobject_cast<const FieldDraft*>(valueOf(object, "draft").value<QObject*>());
}

QString nameOf(const QObject& object) {
  const QString name = QString::fromLatin1(object.metaObject()->className());
  return name.section(u"::"_s, -1);
}

QString shortened(const QVariant& value) {
  const QString text = value.typeId() == QMetaType::QStringList ? value.toStringList().join(u',') : value.toString();
  return text.size() > 40 ? text.first(40) + u'…' : text;
}

QList<QMetaMethod> methodsOf(const QObject& object) {
  QList<QMetaMethod> methods;
  const QMetaObject* type = object.metaObject();
  for (int i = QObject::staticMetaObject.methodCount(); i < type->methodCount(); ++i) {
    const QMetaMethod method = type->method(i);
    if (method.methodType() == QMetaMethod::Method && method.access() == QMetaMethod::Public) methods.append(method);
  }
  return methods;
}

}  // namespace

QString Hand::press() {
  if (!m_client.isSignedIn()) {
    m_client.signInFurther();
    return u"sign in"_s;
  }
  if (m_client.app().overlays()->asking() && m_random.chance(0.8)) return answer();
  if (m_client.app().toasts()->count() > 0 && m_random.chance(0.1)) return message();
  m_client.filePanel().opened = m_random.chance(0.1) ? QString() : m_random.pick(m_files);
  const std::pair<int, QString (Hand::*)()> kinds[] = {{12, &Hand::travel}, {25, &Hand::act},   {22, &Hand::set},
                                                       {30, &Hand::call},   {8, &Hand::scroll}, {3, &Hand::shell}};
  qint64 lot = m_random.below(100);
  for (const auto& [weight, kind] : kinds)
    if ((lot -= weight) < 0) return (this->*kind)();
  Q_UNREACHABLE();
}

QString Hand::answer() {
  Overlays& overlays = *m_client.app().overlays();
  const bool yes = m_random.chance(0.7) && overlays.typedWord().isEmpty();
  const QString what = overlays.title();
  overlays.answer(overlays.token(), yes);
  return (yes ? u"yes to “%1”"_s : u"no to “%1”"_s).arg(what);
}

QString Hand::message() {
  Toasts& toasts = *m_client.app().toasts();
  const Toasts::Toast toast = m_random.pick(toasts.toasts());
  toasts.act(toast.id);
  return u"“%1” of the message “%2”"_s.arg(toast.actionLabel, toast.message);
}

QString Hand::travel() {
  Router& router = *m_client.app().router();
  const auto item = router.page();
  QStringList ids;
  for (const Part& part : m_client.page()) ids += idsOf(*part.object);
  if (!ids.isEmpty() && m_random.chance(0.5)) {
    const QString id = m_random.pick(ids);
    router.openItem(item, id);
    return u"open %1 %2"_s.arg(Pages::name(item), id);
  }
  if (m_random.chance(0.15)) {
    m_random.chance(0.6) ? router.goBack() : router.goForward();
    return u"back or forward"_s;
  }
  if (m_random.chance(0.15)) {
    const auto tab = m_random.pick(Pages::allTabs()).tab;
    router.openSettings(tab);
    return u"open settings "_s + Pages::name(tab);
  }
  const Page page = m_random.pick(Pages::all()).page;
  router.open(page);
  return u"open "_s + Pages::name(page);
}

const Part* Hand::pick(const QList<Part>& parts, const std::function<bool(const Part&)>& isOne) {
  QList<const Part*> found;
  for (const Part& part : parts)
    if (isOne(part)) found.append(&part);
  return found.isEmpty() ? nullptr : m_random.pick(found);
}

QStringList Hand::idsFor(const QObject& object, const QList<Part>& parts) {
  QStringList ids;
  for (const Part& part : partsOf(const_cast<QObject&>(object))) ids += idsOf(*part.object);
  if (ids.isEmpty())
    for (const Part& part : parts) ids += idsOf(*part.object);
  return ids;
}

QString Hand::act() {
  const QList<Part> parts = m_client.page();
  const Part* part = pick(parts, [](const Part& one) { return qobject_cast<Store*>(one.object); });
  if (!part) return {};
  auto& store = static_cast<Store&>(*part->object);
  const QStringList ids = idsFor(store, parts);
  const QString record = ids.isEmpty() || m_random.chance(0.25) ? QString() : m_random.pick(ids);
  const QList<PageAction> actions = store.actions(record);
  if (actions.isEmpty()) return {};
  const PageAction& action = m_random.pick(actions);
  // Or nothing would be left to do anything with.
  if (action.danger && m_random.chance(0.5)) return {};
  const QString key = action.key;
  const QString name = nameOf(store);
  store.act(key, record);
  return u"%1: action %2(%3)"_s.arg(name, key, record);
}

QString Hand::set() {
  const QList<Part> parts = m_client.page();
  const auto writable = [](const QObject& object) {
    QList<QMetaProperty> properties;
    for (int i = QObject::staticMetaObject.propertyCount(); i < object.metaObject()->propertyCount(); ++i) {
      const QMetaProperty one = object.metaObject()->property(i);
      if (one.isWritable() && !notForHands.contains(one.name())) properties.append(one);
    }
    return properties;
  };
  const Part* part = pick(parts, [&writable](const Part& one) {
    return !one.isHidden && !qobject_cast<QAbstractItemModel*>(one.object) && !writable(*one.object).isEmpty();
  });
  if (!part) return {};
  QObject& object = *part->object;
  const QMetaProperty property = m_random.pick(writable(object));
  const QVariant value = valueFor(QString::fromLatin1(property.name()), property.metaType(), object, parts);
  if (!value.isValid()) return {};
  const QString name = nameOf(object);
  property.write(&object, value);
  return u"%1: %2 = “%3”"_s.arg(name, QLatin1StringView(property.name()), shortened(value));
}

QString Hand::call() {
  const QList<Part> parts = m_client.page();
  const auto callable = [](const Part& part) {
    QList<QMetaMethod> methods;
    if (qobject_cast<QAbstractItemModel*>(part.object)) return methods;
    for (const QMetaMethod& method : methodsOf(*part.object)) {
      const QByteArray name = method.name();
      if (notForHands.contains(name) || leftAlone.contains(name) || isGrey(*part.object, name)) continue;
      if (part.isHidden && !openers.contains(name) && !name.startsWith("begin")) continue;
      methods.append(method);
    }
    return methods;
  };
  const Part* part = pick(parts, [&callable](const Part& one) { return !callable(one).isEmpty(); });
  return part ? invoke(*part->object, m_random.pick(callable(*part)), parts) : QString();
}

QString Hand::invoke(QObject& object, const QMetaMethod& method, const QList<Part>& parts) {
  QVariantList values;
  QStringList told;
  for (int i = 0; i < method.parameterCount(); ++i) {
    values.append(
        valueFor(QString::fromLatin1(method.parameterNames().value(i)), method.parameterMetaType(i), object, parts));
    if (!values.last().isValid()) return {};
    told.append(shortened(values.last()));
  }
  const auto argument = [&](int i) {
    if (i >= values.size()) return QGenericArgument();
    if (method.parameterMetaType(i) == QMetaType::fromType<QVariant>()) return QGenericArgument("QVariant", &values[i]);
    return QGenericArgument(method.parameterMetaType(i).name(), values[i].constData());
  };
  const QString name = nameOf(object);
  method.invoke(&object, Qt::DirectConnection, argument(0), argument(1), argument(2), argument(3));
  return u"%1::%2(%3)"_s.arg(name, QString::fromLatin1(method.name()), told.join(u", "_s));
}

QVariant Hand::valueFor(const QString& name, QMetaType type, const QObject& object, const QList<Part>& parts) {
  switch (type.id()) {
    case QMetaType::Bool:
      return m_random.chance(0.5);
    case QMetaType::Int:
      return int(m_random.below(m_random.chance(0.8) ? 4 : 400));
    case QMetaType::QString:
      return textFor(name, object, parts);
    case QMetaType::QVariant: {
      // Of the field that the argument before it named; those that are more than a text have ways of their own.
      const FieldDraft* draft = draftOf(object);
      const QVariant now = draft ? draft->values().value(m_field) : QVariant();
      return now.isValid() && now.typeId() != QMetaType::QVariant ? valueFor({}, now.metaType(), object, parts)
                                                                  : QVariant();
    }
    case QMetaType::LongLong:
      return m_random.below(500);
    case QMetaType::Double:
      return double(m_random.below(500));
    case QMetaType::QStringList: {
      QStringList some;
      for (qint64 left = m_random.below(4); left >= 0; --left) some.append(textFor(name, object, parts));
      // Nothing can be ticked twice.
      some.removeDuplicates();
      return some;
    }
    case QMetaType::QUrl:
      return QUrl::fromLocalFile(m_random.pick(m_files));
    default:
      return {};
  }
}

QString Hand::textFor(const QString& name, const QObject& object, const QList<Part>& parts) {
  if (name == "field"_L1 || name == "key"_L1) {
    const FieldDraft* draft = draftOf(object);
    if (draft && !draft->values().isEmpty()) return m_field = m_random.pick(draft->values().keys());
  }
  if (name == "id"_L1 || name == "ids"_L1 || name.endsWith("Id"_L1) || name == "from"_L1 || name == "to"_L1) {
    const QStringList ids = idsFor(object, parts);
    if (!ids.isEmpty() && m_random.chance(0.95)) return m_random.pick(ids);
  }
  if (name == "query"_L1 && m_random.chance(0.5)) return {};
  // A choice's property and the list of its choices are named alike: "tab" and "tabs".
  const QStringList own = choicesOf(object, name.toLatin1() + 's');
  if (!own.isEmpty() && m_random.chance(0.9)) return m_random.pick(own);
  const QStringList any = choicesOf(object);
  if (!any.isEmpty() && m_random.chance(0.5)) return m_random.pick(any);
  return written();
}

QString Hand::written() {
  static const QStringList texts{u""_s,
                                 u"  "_s,
                                 u"0"_s,
                                 u"12"_s,
                                 u"-3"_s,
                                 u"Nordic fleet"_s,
                                 u"Zoë, مرحبا"_s,
                                 u"maren@northgate.example"_s,
                                 u"nora@lund.example, per@lund.example"_s,
                                 u"outreach-north.example"_s,
                                 u"https://www.lund.example/about"_s,
                                 u"2026-12-01"_s,
                                 u"2026-11-02"_s,
                                 u"9:30"_s,
                                 u"Europe/Berlin"_s,
                                 u"Hi {{firstName}},\n\n{quick|short} question.\n\nMaren"_s,
                                 u"x"_s.repeated(4000)};
  return m_random.chance(0.3) ? u"Text %1"_s.arg(m_random.below(1000)) : m_random.pick(texts);
}

QString Hand::scroll() {
  const QList<Part> parts = m_client.page();
  const Part* part = pick(parts, [](const Part& one) { return qobject_cast<PagedListBase*>(one.object); });
  if (!part) return {};
  auto& list = static_cast<PagedListBase&>(*part->object);
  if (list.canLoadMore() && m_random.chance(0.5)) {
    list.loadMore();
    return part->path + u": a page further"_s;
  }
  const int first = int(m_random.below(list.rows()->count() + 1));
  list.see(first, first + 20);
  return part->path + u": scroll to %1"_s.arg(first);
}

QString Hand::shell() {
  AppModel& app = m_client.app();
  switch (m_random.below(10)) {
    case 0:
      Q_EMIT m_client.memoryPressure().pressure();
      return u"memory is short"_s;
    case 1:
      app.signOut();
      return u"sign out"_s;
    case 2:
      app.mayClose();
      return u"close the window, almost"_s;
    case 3:
      Q_EMIT m_client.network().cameUp();
      return u"the network comes up"_s;
    case 4:
      app.jobs()->clearEnded();
      return u"clear the jobs that have ended"_s;
    case 5:
      app.notifier()->setActive(m_random.chance(0.5));
      return u"the window comes or goes"_s;
    case 6:
    case 7: {
      const QVariantMap workspace = m_random.pick(app.workspaces()).toMap();
      app.openWorkspace(workspace.value(u"slug"_s).toString());
      return u"open workspace "_s + workspace.value(u"slug"_s).toString();
    }
    default:
      app.refreshAccount();
      return u"the window becomes active"_s;
  }
}

}  // namespace orv::soak
