#include "tests/soak/Surface.h"

#include <QAbstractItemModel>
#include <QAssociativeIterable>
#include <QMetaProperty>
#include <QSequentialIterable>
#include <QSet>
#include <QUuid>
#include <QVariant>
#include <algorithm>

#include "app/base/Choice.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::soak {
namespace {

/// When something was read, or how often, is told apart between two clients that show the same.
const QSet<QByteArray> ownToEachClient{"loadedAt",  "syncedAt", "question",   "fieldsRevision",
                                       "readCount", "recovery", "leadsWidth", "savedText"};

QList<QMetaProperty> propertiesOf(const QObject& object) {
  QList<QMetaProperty> properties;
  const QMetaObject* type = object.metaObject();
  for (int i = QObject::staticMetaObject.propertyCount(); i < type->propertyCount(); ++i)
    properties.append(type->property(i));
  return properties;
}

bool isObject(const QMetaProperty& property) { return QByteArrayView(property.typeName()).endsWith('*'); }

QString textOf(const QVariant& value);

QString gadgetText(const QVariant& gadget, const QMetaObject& type) {
  QStringList fields;
  for (int i = 0; i < type.propertyCount(); ++i)
    fields.append(QLatin1StringView(type.property(i).name()) + u'=' +
                  textOf(type.property(i).readOnGadget(gadget.constData())));
  return u'{' + fields.join(u"; "_s) + u'}';
}

/// What a client calls something that the service has no name for.
bool isOwnKey(const QString& text) { return text.startsWith(u'{') && !QUuid::fromString(text).isNull(); }

QString textOf(const QVariant& value) {
  if (value.typeId() == QMetaType::QString) return isOwnKey(value.toString()) ? u"{}"_s : value.toString();
  if (value.canView<QSequentialIterable>()) {
    QStringList items;
    const auto list = value.value<QSequentialIterable>();
    for (const QVariant& item : list) items.append(textOf(item));
    return u'[' + items.join(u", "_s) + u']';
  }
  if (value.canView<QAssociativeIterable>()) {
    QStringList items;
    const auto map = value.value<QAssociativeIterable>();
    for (auto item = map.begin(); item != map.end(); ++item)
      items.append(item.key().toString() + u": "_s + textOf(item.value()));
    return u'{' + items.join(u", "_s) + u'}';
  }
  if (value.metaType().flags() & QMetaType::IsGadget) return gadgetText(value, *value.metaType().metaObject());
  return value.toString();
}

int keyRole(const QAbstractItemModel& model) {
  const auto roles = model.roleNames();
  return roles.key("id", roles.key("key", -1));
}

void readRows(const QString& path, const QAbstractItemModel& model, Reading& reading) {
  const auto roles = model.roleNames();
  const int key = keyRole(model);
  QStringList order;
  for (int row = 0; row < model.rowCount(); ++row) {
    const QModelIndex index = model.index(row, 0);
    const QString id = key < 0 ? QString() : model.data(index, key).toString();
    order.append(key < 0 || isOwnKey(id) ? QString::number(row) : id);
    for (auto role = roles.begin(); role != roles.end(); ++role)
      reading.insert(path + u'[' + order.last() + u"]."_s + QString::fromLatin1(role.value()),
                     textOf(model.data(index, role.key())));
  }
  reading.insert(path + u".rows"_s, order.join(u' '));
}

bool isClosed(const QObject& object) {
  if (const QVariant shown = valueOf(object, "shown"); shown.typeId() == QMetaType::Bool) return !shown.toBool();
  // What shows one record of a list, and just now none.
  if (const QVariant id = valueOf(object, "id"); id.typeId() == QMetaType::QString && id.toString().isEmpty())
    return true;
  const auto* form = valueOf(object, "form").value<QObject*>();
  return form && form->metaObject()->indexOfProperty("shown") >= 0 && isClosed(*form);
}

void walk(const Part& part, QSet<QObject*>& known, QList<Part>& parts) {
  if (!part.object || known.contains(part.object)) return;
  known.insert(part.object);
  parts.append(part);
  parts.last().isHidden |= isClosed(*part.object);
  const bool isHidden = parts.last().isHidden;
  for (const QMetaProperty& property : propertiesOf(*part.object)) {
    // The program is no part of the page, though the settings show it.
    if (!isObject(property) || qstrcmp(property.name(), "program") == 0) continue;
    const QString path = (part.path.isEmpty() ? QString() : part.path + u'.') + QLatin1StringView(property.name());
    walk({path, property.read(part.object).value<QObject*>(), isHidden}, known, parts);
  }
}

QVariant comparedOf(const Part& part, const QMetaProperty& property) {
  const QVariant value = property.read(part.object);
  if (!part.path.endsWith("threads"_L1) || qstrcmp(property.name(), "tabs") != 0) return value;
  // Unread mail is counted as the badges do, of which each client hears at its own minute.
  auto tabs = value.value<QList<Choice>>();
  tabs.removeIf([](const Choice& tab) { return tab.key == "unread"_L1; });
  return QVariant::fromValue(tabs);
}

}  // namespace

QList<Part> partsOf(QObject& root) {
  QSet<QObject*> known;
  QList<Part> parts;
  walk({{}, &root}, known, parts);
  return parts;
}

Reading readingOf(QObject& root) {
  Reading reading;
  for (const Part& part : partsOf(root)) {
    // What was not saved, and what the agent learns of a decision, only the one has who did it.
    if (part.isHidden || part.path.endsWith("recovery"_L1) || part.path.endsWith("feedback"_L1) ||
        part.path.contains("leftovers"_L1))
      continue;
    const QString prefix = part.path.isEmpty() ? QString() : part.path + u'.';
    for (const QMetaProperty& property : propertiesOf(*part.object))
      if (!isObject(property) && !ownToEachClient.contains(property.name()))
        reading.insert(prefix + QLatin1StringView(property.name()), textOf(comparedOf(part, property)));
    if (const auto* model = qobject_cast<QAbstractItemModel*>(part.object)) readRows(part.path, *model, reading);
  }
  return reading;
}

QStringList differences(const Reading& shown, const Reading& held) {
  QStringList lines;
  const auto cut = [](const QString& text, qsizetype from = 0) {
    constexpr qsizetype before = 40, most = 300;
    const qsizetype at = std::max<qsizetype>(0, from - before);
    return (at > 0 ? u"…"_s : QString()) + text.mid(at, most) + (text.size() > at + most ? u"…"_s : QString());
  };
  for (auto field = shown.begin(); field != shown.end(); ++field) {
    const auto other = held.find(field.key());
    if (other == held.end()) {
      lines.append(field.key() + u": shown “"_s + cut(field.value()) + u"”, held not at all"_s);
    } else if (other.value() != field.value()) {
      // From where they part.
      const auto parted = std::ranges::mismatch(field.value(), other.value()).in1 - field.value().begin();
      lines.append(field.key() + u": shown “"_s + cut(field.value(), parted) + u"”, held “"_s +
                   cut(other.value(), parted) + u'”');
    }
  }
  for (auto field = held.begin(); field != held.end(); ++field)
    if (!shown.contains(field.key())) lines.append(field.key() + u": not shown, held “"_s + cut(field.value()) + u'”');
  return lines;
}

QStringList idsOf(const QObject& object) {
  QStringList ids;
  const auto* model = qobject_cast<const QAbstractItemModel*>(&object);
  const int key = model ? keyRole(*model) : -1;
  if (key < 0) return ids;
  for (int row = 0; row < std::min(model->rowCount(), 200); ++row)
    ids.append(model->data(model->index(row, 0), key).toString());
  return ids;
}

QVariant valueOf(const QObject& object, const char* property, const QVariant& otherwise) {
  const int index = object.metaObject()->indexOfProperty(property);
  return index < 0 ? otherwise : object.metaObject()->property(index).read(&object);
}

QStringList choicesOf(const QObject& object, const QByteArray& property) {
  QStringList keys;
  for (const QMetaProperty& one : propertiesOf(object)) {
    if (!property.isEmpty() && property != one.name()) continue;
    if (one.metaType() == QMetaType::fromType<QList<Choice>>()) {
      for (const Choice& choice : one.read(&object).value<QList<Choice>>()) keys.append(choice.key);
    } else if (one.metaType() == QMetaType::fromType<QStringList>()) {
      keys += one.read(&object).toStringList();
    }
  }
  return keys;
}

}  // namespace orv::soak
