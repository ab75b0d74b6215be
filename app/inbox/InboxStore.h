#pragma once

#include "app/base/Choice.h"
#include "app/base/Store.h"
#include "app/inbox/DraftDesk.h"
#include "app/inbox/Writings.h"

namespace orv {

/// The inbox of one workspace: its conversations, and which of its three sections is shown. The drafts' review and the
/// agent have stores of their own.
class InboxStore final : public Store {
  Q_OBJECT
  Q_PROPERTY(QString section READ sectionName WRITE setSection NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> sections READ sections NOTIFY changed)
  Q_PROPERTY(orv::Store* drafts READ drafts CONSTANT)
  Q_PROPERTY(orv::Store* agent READ agent CONSTANT)

 public:
  enum class Section { conversations, drafts, agent };
  Q_ENUM(Section)

  /// `drafts` is a DraftDesk; it and `agent` may be missing.
  InboxStore(WorkspaceContext& context, Writings& writings, Store* drafts, Store* agent);

  Section section() const { return m_section; }
  QString sectionName() const;
  void setSection(const QString& name);
  QList<Choice> sections() const;
  Store* drafts() const { return m_drafts; }
  Store* agent() const { return m_agent; }

  void refresh() override;
  PagePlace where() const override;
  void goTo(const PagePlace& place) override;
  void begin() override;

 Q_SIGNALS:
  void changed();

 protected:
  QList<PageAction> offered(const QString& record) override;

 private:
  /// Of the section that is shown; null for the conversations, which are this store's own.
  Store* shownPart() const;

  Writings& m_writings;
  Store* m_drafts;
  Store* m_agent;
  Section m_section = Section::conversations;
};

}  // namespace orv
