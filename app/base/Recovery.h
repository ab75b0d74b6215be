#pragma once

#include <QObject>
#include <functional>
#include <memory>

#include "app/base/Journal.h"
#include "app/base/WorkspaceContext.h"

namespace orv {

class FieldDraft;
class Form;

/// What a form or a text does about the journal: it keeps what is unsaved there, takes up what an earlier run or
/// session left, and says so until that is saved or thrown away.
class Recovery final : public QObject {
  Q_OBJECT
  Q_PROPERTY(QString notice READ notice NOTIFY changed)

 public:
  enum class Restored {
    /// It is shown as unsaved work.
    shown,
    /// The service has it already.
    held,
    /// Nobody can tell what it is.
    unreadable
  };
  /// What was kept, and the record as it is now.
  struct Kept {
    JournalText text;
    /// Somebody changed the record since.
    bool isOther = false;
  };
  struct Hooks {
    std::function<bool()> isUnsaved;
    std::function<JournalText()> text;
    std::function<Restored(const Kept&)> restore;
    /// Back to what the service has.
    std::function<void()> discard;
  };

  /// What they are for a draft of fields.
  static Hooks of(FieldDraft& draft);

  /// Its owner declares it after what the hooks read.
  Recovery(WorkspaceContext& context, Hooks hooks, QObject* parent = nullptr);

  /// The record is there, of the version given; what is typed about it is kept under the key from now on.
  void begin(const QString& key, std::optional<qint64> version);
  /// Follows the fields of a form while it is shown, and gives up with the form what was filled in. The draft names
  /// key and version.
  void keep(Form& form, FieldDraft& draft);
  /// The form goes, or is about to show another record; what is unsaved stays in the journal.
  void end();
  /// Something was typed, saved or discarded.
  void follow();

  /// What was restored; empty when nothing was, or nothing of it is left.
  const QString& notice() const { return m_notice; }
  Q_INVOKABLE void discard();

 Q_SIGNALS:
  void changed();

 private:
  Task<void> takeUp(std::optional<qint64> version);
  void giveUp();
  void setNotice(const QString& notice);

  WorkspaceContext& m_context;
  Hooks m_hooks;
  QString m_key;
  QString m_notice;
  std::unique_ptr<JournalLine> m_line;
  TaskSlot m_task;
};

}  // namespace orv
