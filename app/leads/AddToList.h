#pragma once

#include "app/base/Actions.h"
#include "app/base/Form.h"
#include "app/base/KeptFields.h"
#include "app/leads/LeadListPicker.h"
#include "kit/models/leads/leadTarget.h"
#include "kit/models/leads/listAdding.h"

namespace orv {

/// What came of adding leads to a list, in one sentence.
QString listAddSummary(const QString& list, const ListAddResult& result);

/// What a person fills in to add leads to a list. Whom it adds and which list they pick is for now only.
struct ListAddingFields {
  QString newName;
  QString howMany;
  bool skipInLists = false;
  bool skipInCampaigns = false;
};
BOOST_DESCRIBE_STRUCT(ListAddingFields, (), (newName, howMany, skipInLists, skipInCampaigns))

/// The form that adds leads to a list, or to a new one, and then shows what came of it. Whom it adds is fixed when it
/// opens.
class AddToList final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::Form* form READ form CONSTANT)
  Q_PROPERTY(orv::LeadListPicker* list READ list CONSTANT)
  Q_PROPERTY(orv::Recovery* recovery READ recovery CONSTANT)
  Q_PROPERTY(QString about READ about NOTIFY changed)
  Q_PROPERTY(bool asksHowMany READ asksHowMany NOTIFY changed)
  Q_PROPERTY(QString howMany READ howMany WRITE setHowMany NOTIFY changed)
  Q_PROPERTY(QString howManyHelp READ howManyHelp CONSTANT)
  Q_PROPERTY(QString problem READ problem NOTIFY changed)
  Q_PROPERTY(bool skipInLists READ skipInLists WRITE setSkipInLists NOTIFY changed)
  Q_PROPERTY(bool skipInCampaigns READ skipInCampaigns WRITE setSkipInCampaigns NOTIFY changed)
  Q_PROPERTY(QString submitLabel READ submitLabel NOTIFY changed)
  Q_PROPERTY(QString need READ need NOTIFY changed)
  Q_PROPERTY(bool canSubmit READ canSubmit NOTIFY changed)
  Q_PROPERTY(bool ended READ ended NOTIFY changed)
  Q_PROPERTY(QString summary READ summary NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> result READ result NOTIFY changed)

 public:
  AddToList(WorkspaceContext& context, Store& whole);

  Form* form() { return &m_form; }
  LeadListPicker* list() { return &m_list; }
  Recovery* recovery() { return m_kept.recovery(); }
  /// Whom: "3 selected leads".
  QString about() const { return m_target.description(); }
  bool asksHowMany() const { return m_target.filter() != nullptr; }
  /// As typed; empty for every match.
  const QString& howMany() const { return m_howMany; }
  void setHowMany(const QString& text);
  static QString howManyHelp();
  QString problem() const;
  bool skipInLists() const { return m_skipInLists; }
  void setSkipInLists(bool skip);
  bool skipInCampaigns() const { return m_skipInCampaigns; }
  void setSkipInCampaigns(bool skip);
  QString submitLabel() const;
  /// What is missing; empty for nothing.
  QString need() const;
  bool canSubmit() const { return !m_form.busy() && !ended() && problem().isEmpty() && need().isEmpty(); }

  /// It is done: what came of it is shown.
  bool ended() const { return m_result.has_value(); }
  QString summary() const;
  /// A line for each kind of lead, and how many that are.
  QList<Choice> result() const;

  void open(const LeadTarget& target);
  Q_INVOKABLE void submit() { m_tasks.start(submitTask()); }
  Q_INVOKABLE void openList();
  Task<void> submitTask();

 Q_SIGNALS:
  void changed();

 private:
  struct Added {
    QString id;
    QString name;
    ListAddResult result;
  };
  std::optional<int> number() const;
  void fill(const ListAddingFields& fields);
  ListAddBody body() const;
  Task<std::optional<Added>> send(ListAddBody body, Form::Submission* submission);
  Task<void> follow();
  Task<bool> lookAgain();

  BusySet m_busy;
  Actions m_actions;
  Form m_form;
  LeadListPicker m_list;
  LeadTarget m_target;
  QString m_howMany;
  bool m_skipInLists = false;
  bool m_skipInCampaigns = false;
  KeptFields<ListAddingFields> m_kept;
  std::optional<Added> m_result;
  TaskSlot m_following;
};

}  // namespace orv
