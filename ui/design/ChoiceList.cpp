#include "ui/design/ChoiceList.h"

#include <QVariantMap>

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

Choice choiceOf(const QVariantMap& map) {
  return {.key = map.value(u"key"_s).toString(),
          .label = map.value(u"label"_s).toString(),
          .detail = map.value(u"detail"_s).toString(),
          .count = map.value(u"count"_s, -1).toInt(),
          .ticked = map.value(u"ticked"_s).toBool()};
}

QList<Choice> choicesOf(const QVariantList& list) {
  QList<Choice> choices;
  for (const QVariant& item : list) choices.append(choiceOf(item.toMap()));
  return choices;
}

}  // namespace

ChoiceList::ChoiceList(QObject* parent) : QObject(parent) {
  static const bool registered = QMetaType::registerConverter<QVariantMap, Choice>(choiceOf) &&
                                 QMetaType::registerConverter<QVariantList, QList<Choice>>(choicesOf);
  Q_UNUSED(registered)
}

void ChoiceList::setOptions(const QList<Choice>& options) {
  // What is the same again must not cost the entries their focus.
  if (options == m_options) return;
  m_options = options;
  Q_EMIT optionsChanged();
  Q_EMIT placeChanged();
}

void ChoiceList::setCurrent(const QString& key) {
  if (key == m_current) return;
  m_current = key;
  Q_EMIT currentChanged();
  Q_EMIT placeChanged();
}

QString ChoiceList::currentLabel() const { return m_options.value(currentIndex()).label; }

int ChoiceList::indexOf(const QString& key) const {
  for (qsizetype i = 0; i < m_options.size(); ++i)
    if (m_options[i].key == key) return int(i);
  return -1;
}

QString ChoiceList::around(int by) const {
  const int size = count();
  return size > 0 ? keyAt((currentIndex() + by + size) % size) : QString();
}

QString ChoiceList::startingWith(const QString& letter) const {
  const int size = count(), from = currentIndex();
  for (int i = 1; i <= size; ++i) {
    const Choice& choice = m_options[(from + i) % size];
    if (choice.label.startsWith(letter, Qt::CaseInsensitive)) return choice.key;
  }
  return {};
}

}  // namespace orv
