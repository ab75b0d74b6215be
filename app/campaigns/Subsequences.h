#pragma once

#include <QStringList>
#include <QVariantList>

#include "app/base/Actions.h"
#include "app/base/RecordModel.h"
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

/// The campaigns that take over leads of this one when a reply gets a label, and the form that makes another.
class Subsequences final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::ResourceBase* list READ list CONSTANT)
  Q_PROPERTY(orv::ListModel* rows READ rows CONSTANT)
  Q_PROPERTY(bool formShown READ formShown NOTIFY changed)
  Q_PROPERTY(QString name READ name WRITE setName NOTIFY changed)
  Q_PROPERTY(QString nameError READ nameError NOTIFY changed)
  Q_PROPERTY(QVariantList labels READ labels NOTIFY changed)
  Q_PROPERTY(QString labelsError READ labelsError NOTIFY changed)
  Q_PROPERTY(QString explanation READ explanation NOTIFY changed)
  Q_PROPERTY(bool creating READ creating NOTIFY changed)

 public:
  explicit Subsequences(CampaignContext& context);

  Resource<SubsequenceList>* list() { return &m_list; }
  SubsequenceRows* rows() { return &m_rows; }
  /// Nothing until it is known.
  std::optional<qsizetype> count() const;

  bool formShown() const { return m_formShown; }
  QString name() const { return m_name; }
  void setName(const QString& name);
  QString nameError() const { return m_nameError; }
  /// Those that may be picked: key, label and whether it is.
  QVariantList labels() const;
  QString labelsError() const;
  /// What a new one is made of.
  QString explanation() const;
  bool creating() const { return !m_busy.ids().isEmpty(); }

  Q_INVOKABLE void open(const QString& id) { context().openItem(Page::campaigns, id); }
  Q_INVOKABLE void beginCreate();
  Q_INVOKABLE void toggleLabel(const QString& key);
  Q_INVOKABLE void cancel();
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
  bool m_formShown = false;
  QString m_name;
  QString m_nameError;
  QStringList m_picked;
  QString m_labelsError;
};

}  // namespace orv
