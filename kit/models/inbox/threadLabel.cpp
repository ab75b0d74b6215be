#include "kit/models/inbox/threadLabel.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

struct KnownLabel {
  QLatin1String word;
  QLatin1String title;
  QLatin1String tone;
};

constexpr KnownLabel knownLabels[] = {
    {"interested"_L1, "Interested"_L1, "positive"_L1},
    {"meeting_booked"_L1, "Meeting booked"_L1, "positive"_L1},
    {"meeting_completed"_L1, "Meeting completed"_L1, "positive"_L1},
    {"not_now"_L1, "Not now"_L1, ""_L1},
    {"not_interested"_L1, "Not interested"_L1, "negative"_L1},
    {"lost"_L1, "Lost"_L1, "negative"_L1},
    {"out_of_office"_L1, "Out of office"_L1, ""_L1},
    {"wrong_person"_L1, "Wrong person"_L1, ""_L1},
    {"unsubscribe"_L1, "Unsubscribe"_L1, "negative"_L1},
};

const KnownLabel* find(const QString& word) {
  const auto* const found = std::ranges::find(knownLabels, word, &KnownLabel::word);
  return found == std::end(knownLabels) ? nullptr : found;
}

}  // namespace

const QList<ThreadLabel>& ThreadLabel::known() {
  static const QList<ThreadLabel> all = [] {
    QList<ThreadLabel> words;
    for (const KnownLabel& label : knownLabels) words.append(ThreadLabel(label.word));
    return words;
  }();
  return all;
}

QString ThreadLabel::title() const {
  const KnownLabel* const label = find(rawValue);
  return label ? QString(label->title) : rawValue;
}

QString ThreadLabel::tone() const {
  const KnownLabel* const label = find(rawValue);
  return label ? QString(label->tone) : QString();
}

ReplyLabel replyLabel(const ThreadLabel& label, const QList<ReplyLabel>& own) {
  const auto found = std::ranges::find(own, label.rawValue, &ReplyLabel::key);
  ReplyLabel read{label.rawValue, label.title(), label.tone()};
  if (found == own.end()) return read;
  if (found->name && !found->name->isEmpty()) read.name = found->name;
  if (found->tone) read.tone = found->tone;
  return read;
}

QList<ReplyLabel> replyLabels(const QList<ReplyLabel>& own) {
  QList<ReplyLabel> all;
  for (const ThreadLabel& label : ThreadLabel::known()) all.append(replyLabel(label, own));
  for (const ReplyLabel& label : own) {
    const bool there = std::ranges::find(all, label.key, &ReplyLabel::key) != all.end();
    if (!there && !label.key.isEmpty()) all.append(replyLabel(ThreadLabel(label.key), own));
  }
  return all;
}

}  // namespace orv
