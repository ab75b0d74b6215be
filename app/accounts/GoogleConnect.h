#pragma once

#include "app/base/EnumName.h"
#include "app/base/Form.h"
#include "app/base/Poll.h"
#include "app/base/RecordModel.h"
#include "app/base/Resource.h"
#include "app/base/RowFields.h"
#include "kit/models/mailboxes/googleWorkspace.h"

namespace orv {

/// An inbox of the domain: to be picked and, once that has been tried, connected or not.
struct GoogleInboxRow {
  QString id;
  QString address;
  bool existing = false;
  bool picked = false;
  QString status;
  QString statusText;
  QString message;
  bool operator==(const GoogleInboxRow&) const = default;
};
BOOST_DESCRIBE_STRUCT(GoogleInboxRow, (), (id, address, existing, picked, status, statusText, message))
ORV_DECLARE_ROW(GoogleInboxRow)

class GoogleInboxRows final : public RecordModel<GoogleInboxRow> {
 public:
  using RecordModel::RecordModel;
};

/// Connects the inboxes of a Google Workspace domain: asks for its users, waits while the admin lets the service in,
/// and has those connected that are picked.
class GoogleConnect final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::ResourceBase* status READ status CONSTANT)
  Q_PROPERTY(QString stage READ stageName NOTIFY changed)
  Q_PROPERTY(bool looking READ looking NOTIFY changed)
  Q_PROPERTY(bool waiting READ waiting NOTIFY changed)
  Q_PROPERTY(int waitedSeconds READ waitedSeconds NOTIFY changed)
  Q_PROPERTY(QString waitedText READ waitedText NOTIFY changed)
  Q_PROPERTY(bool connecting READ connecting NOTIFY changed)
  Q_PROPERTY(QString problem READ problem NOTIFY changed)
  Q_PROPERTY(QString addressHint READ addressHint CONSTANT)
  Q_PROPERTY(QString clientId READ clientId NOTIFY changed)
  Q_PROPERTY(QString scope READ scope NOTIFY changed)
  Q_PROPERTY(QString copied READ copied NOTIFY changed)
  Q_PROPERTY(QString directoryText READ directoryText NOTIFY changed)
  Q_PROPERTY(QString outcomeText READ outcomeText NOTIFY changed)
  Q_PROPERTY(QString connectLabel READ connectLabel NOTIFY changed)
  Q_PROPERTY(bool canConnect READ canConnect NOTIFY changed)
  Q_PROPERTY(int pickable READ pickable NOTIFY changed)
  Q_PROPERTY(int pickedCount READ pickedCount NOTIFY changed)
  Q_PROPERTY(orv::ListModel* inboxes READ inboxes CONSTANT)

 public:
  /// What the dialog shows: is the service set up at all; whose domain is it; what the admin has to do; whom to
  /// connect; what came of it.
  enum class Stage { checking, unavailable, asking, steps, directory, outcome };
  Q_ENUM(Stage)
  static constexpr PollPace waitPace{std::chrono::seconds(4), 225};
  static constexpr std::chrono::seconds copiedShown{2};

  /// `form` is the dialog's.
  GoogleConnect(WorkspaceContext& context, Store* whole, Form& form);

  Resource<GoogleWorkspaceStatus>* status() { return &m_status; }
  Stage stage() const;
  QString stageName() const { return enumName(stage()); }
  bool looking() const { return m_looking; }
  bool waiting() const { return m_waiting; }
  int waitedSeconds() const { return m_waitedSeconds; }
  /// "Checked 14 times · stops after 15 minutes".
  QString waitedText() const;
  bool connecting() const { return m_connecting; }
  QString problem() const { return m_problem; }
  QString addressHint() const;
  QString clientId() const;
  QString scope() const;
  /// "clientId" or "scope" while the button says that it was copied.
  QString copied() const { return m_copied; }
  /// "12 new on a.example, 3 already connected".
  QString directoryText() const;
  /// "11 of 12 connected".
  QString outcomeText() const;
  QString connectLabel() const;
  bool canConnect() const;
  int pickable() const;
  int pickedCount() const { return int(m_picked.size()); }
  GoogleInboxRows* inboxes() { return &m_rows; }
  const std::optional<GoogleConnectOutcome>& outcome() const { return m_outcome; }

  /// The dialog shows it from the beginning.
  void start();
  /// The dialog closes. What is being connected goes on.
  void stop();

  Q_INVOKABLE void retry() { m_status.load(); }
  void close() override;
  /// Asks for the inboxes on the domain of the admin's address; an earlier question is dropped.
  Q_INVOKABLE void find(const QString& admin);
  Q_INVOKABLE void cancelWait();
  Q_INVOKABLE void copy(const QString& what);
  Q_INVOKABLE void openAdmin();
  Q_INVOKABLE void toggle(const QString& address);
  Q_INVOKABLE void pickAll(bool picked);
  Q_INVOKABLE void connectPicked();

 Q_SIGNALS:
  void changed();

 private:
  Task<void> findTask(QString admin);
  Task<bool> askAgain(QString admin);
  Task<std::optional<GoogleDirectory>> ask(QString admin, bool isFirst);
  bool take(const GoogleDirectory& directory);
  Task<void> connectTask();
  Task<void> showCopied(QString what);
  bool isExisting(const QString& address) const { return m_existing.contains(address.toCaseFolded()); }
  void showInboxes();
  void showOutcome();
  void set(const QString& problem);

  Form& m_form;
  Actions m_actions;
  BusySet m_busy;
  Resource<GoogleWorkspaceStatus> m_status;
  bool m_looking = false;
  bool m_waiting = false;
  bool m_showsSteps = false;
  int m_waitedSeconds = 0;
  bool m_connecting = false;
  QString m_problem;
  QString m_copied;
  std::optional<GoogleDirectory> m_directory;
  /// Connected already, in folded case.
  QSet<QString> m_existing;
  QSet<QString> m_picked;
  std::optional<GoogleConnectOutcome> m_outcome;
  GoogleInboxRows m_rows;
  TaskSlot m_search;
  TaskSlot m_copying;
};

}  // namespace orv
