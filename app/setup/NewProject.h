#pragma once

#include "app/base/Choice.h"
#include "app/base/Draft.h"
#include "app/base/Form.h"
#include "app/base/Recovery.h"
#include "kit/models/setup/setupWords.h"

namespace orv {

struct NewProjectFields {
  QString mode;
  QString name;
  bool operator==(const NewProjectFields&) const = default;
};
BOOST_DESCRIBE_STRUCT(NewProjectFields, (), (mode, name))

/// A new project in two questions: for what kind of inboxes, and its name.
class NewProject final : public Form {
  Q_OBJECT
  Q_PROPERTY(bool named READ isNamed NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> modes READ modes CONSTANT)
  Q_PROPERTY(QString mode READ mode WRITE setMode NOTIFY changed)
  Q_PROPERTY(QString name READ name WRITE setName NOTIFY changed)
  Q_PROPERTY(bool canGoOn READ canGoOn NOTIFY changed)
  Q_PROPERTY(orv::Recovery* recovery READ recovery CONSTANT)

 public:
  explicit NewProject(WorkspaceContext& context);

  void begin();
  /// The second question is asked.
  bool isNamed() const { return m_named; }
  QList<Choice> modes() const;
  QString mode() const { return m_draft.typed().mode; }
  void setMode(const QString& mode);
  QString name() const { return m_draft.typed().name; }
  void setName(const QString& name);
  bool canGoOn() const { return !busy() && (m_named ? !name().trimmed().isEmpty() : !mode().isEmpty()); }
  Recovery* recovery() { return &m_recovery; }

  /// To the next question, or sends it.
  Q_INVOKABLE void goOn();
  Q_INVOKABLE void back();

  /// Gets the trimmed name, which is as long as it may be.
  std::function<void(QString name, SetupMode mode)> onSubmit;

 private:
  DraftOf<NewProjectFields> m_draft;
  Recovery m_recovery;
  bool m_named = false;
};

}  // namespace orv
