#pragma once

#include <QStringList>
#include <QVariantList>

#include "app/base/Actions.h"
#include "app/base/Choice.h"
#include "app/base/Draft.h"
#include "app/base/Form.h"
#include "app/base/RecordModel.h"
#include "app/base/Recovery.h"
#include "app/base/RowFields.h"
#include "app/base/Store.h"
#include "app/campaigns/CampaignContext.h"
#include "kit/models/campaigns/subsequence.h"
#include "kit/models/labels.h"

namespace orv {

/// A subsequence as its parent's table shows it.
struct SubsequenceRow {
  QString id;
  QString name;
  /// What enrols a lead.
  QString trigger;
  QString statusWord;
  QString statusLabel;
  QString steps;
  QString leads;
  QString sent;
  QString replied;
  bool operator==(const SubsequenceRow&) const = default;
};
BOOST_DESCRIBE_STRUCT(SubsequenceRow, (), (id, name, trigger, statusWord, statusLabel, steps, leads, sent, replied))
ORV_DECLARE_ROW(SubsequenceRow)

class SubsequenceRows final : public RecordModel<SubsequenceRow> {
 public:
  using RecordModel::RecordModel;
};

/// What a new subsequence is asked for.
struct NewSubsequence {
  QString name;
  /// Keys of the reply labels that enrol a lead.
  QStringList labels;
  bool operator==(const NewSubsequence&) const = default;
};
BOOST_DESCRIBE_STRUCT(NewSubsequence, (), (name, labels))

/// The campaigns that take over leads of this one when a reply gets a label, and the form that makes another.
class Subsequences final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::ResourceBase* list READ list CONSTANT)
  Q_PROPERTY(orv::ListModel* rows READ rows CONSTANT)
  Q_PROPERTY(orv::Form* form READ form CONSTANT)
  Q_PROPERTY(orv::FieldDraft* draft READ draft CONSTANT)
  Q_PROPERTY(orv::Recovery* recovery READ recovery CONSTANT)
  Q_PROPERTY(orv::ResourceBase* knownLabels READ knownLabels CONSTANT)
  Q_PROPERTY(QList<orv::Choice> labels READ labels NOTIFY changed)
  Q_PROPERTY(QString labelsNote READ labelsNote NOTIFY changed)
  Q_PROPERTY(QString explanation READ explanation NOTIFY changed)

 public:
  explicit Subsequences(CampaignContext& context);

  Resource<SubsequenceList>* list() { return &m_list; }
  SubsequenceRows* rows() { return &m_rows; }
  /// Nothing until it is known.
  std::optional<qsizetype> count() const;

  /// The form that makes another, and what is filled in there.
  Form* form() { return &m_form; }
  DraftOf<NewSubsequence>* draft() { return &m_draft; }
  Recovery* recovery() { return &m_recovery; }
  Resource<ReplyLabelList>* knownLabels() { return &m_labels; }
  /// Those that may be picked: key, label and whether it is.
  QList<Choice> labels() const;
  /// Says that there are none because they could not be read.
  QString labelsNote() const;
  /// What a new one is made of.
  QString explanation() const;

  /// Loads when first shown; the labels whenever the tab is.
  void ensureLoaded() override;
  Q_INVOKABLE void open(const QString& id) { context().openItem(Page::campaigns, id); }
  Q_INVOKABLE void beginCreate();
  Q_INVOKABLE void retryLabels() { m_labels.load(); }
  Q_INVOKABLE void toggleLabel(const QString& key);
  Q_INVOKABLE void create() { m_tasks.start(createTask()); }
  Task<void> createTask();

 Q_SIGNALS:
  void changed();

 private:
  void take(const Change<Campaign>& change);
  void show();
  QString labelTitle(const QString& key) const;

  CampaignContext& m_context;
  BusySet m_busy;
  Actions m_actions;
  Resource<SubsequenceList> m_list;
  Resource<ReplyLabelList> m_labels;
  SubsequenceRows m_rows;
  Form m_form;
  DraftOf<NewSubsequence> m_draft;
  Recovery m_recovery;
};

}  // namespace orv
