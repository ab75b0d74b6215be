#pragma once

#include "app/base/Choice.h"
#include "app/base/Resource.h"
#include "kit/models/labels.h"
#include "kit/models/leads/unlocks.h"

namespace orv {

/// A tag of the workspace, and how much carries it.
struct CountedTag {
  QString name;
  qint64 campaigns = 0;
  qint64 accounts = 0;
  bool operator==(const CountedTag&) const = default;
};

struct CountedTags {
  QList<CountedTag> items;
  bool operator==(const CountedTags&) const = default;
};

/// What the workspace has and these settings only show: its tags, its labels of replies, its allowance.
class OutreachLists final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::ResourceBase* tags READ tagList CONSTANT)
  Q_PROPERTY(orv::ResourceBase* labels READ labelList CONSTANT)
  Q_PROPERTY(orv::ResourceBase* allowance READ allowance CONSTANT)
  Q_PROPERTY(QList<orv::Choice> tagFacts READ tagFacts NOTIFY changed)
  Q_PROPERTY(QVariantList labelFacts READ labelFacts NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> allowanceFacts READ allowanceFacts NOTIFY changed)
  Q_PROPERTY(qreal allowanceUsed READ allowanceUsed NOTIFY changed)

 public:
  explicit OutreachLists(Store& whole);

  Resource<CountedTags>* tagList() { return &m_tags; }
  Resource<ReplyLabelList>* labelList() { return &m_labels; }
  Resource<UnlockUsage>* allowance() { return &m_allowance; }
  /// Each with what carries it.
  QList<Choice> tagFacts() const;
  /// Name and tone of each.
  QVariantList labelFacts() const;
  QList<Choice> allowanceFacts() const;
  /// The share of it that is used up, 0 to 1.
  qreal allowanceUsed() const;

 Q_SIGNALS:
  void changed();

 private:
  Task<CountedTags> loadTags();
  template <class Record>
  void countAnewWith();

  Resource<CountedTags> m_tags;
  Resource<ReplyLabelList> m_labels;
  Resource<UnlockUsage> m_allowance;
};

}  // namespace orv
