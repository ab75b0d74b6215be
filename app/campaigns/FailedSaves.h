#pragma once

#include <QSet>
#include <optional>

#include "app/base/Draft.h"
#include "app/base/Resource.h"
#include "kit/models/campaigns/campaign.h"

namespace orv {

/// What of one campaign could not be saved. Its row in the list is marked as long as that is so; whoever has left its
/// page is told there, with the way back.
class FailedSaves final {
 public:
  FailedSaves(WorkspaceContext& workspace, const Resource<Campaign>& campaign, QString id)
      : m_workspace(workspace), m_campaign(campaign), m_id(std::move(id)) {}

  /// The last save of the part has failed, or has not.
  void mark(const void* part, bool hasFailed);
  /// False while the campaign's own page is open, which tells of it by itself.
  bool tell(const QString& why) const;
  /// The same of an error; `sentence` says what could not be saved.
  bool tell(const QString& sentence, const APIError& error) const;

  /// What is typed there waits for its button: once a save of it has failed it counts until nothing of it is left.
  void follow(FieldDraft& draft);
  /// A save of the draft has failed. For Actions::Tell.
  bool failed(FieldDraft& draft, const QString& sentence, const APIError& error);

 private:
  WorkspaceContext& m_workspace;
  const Resource<Campaign>& m_campaign;
  QString m_id;
  QSet<const void*> m_parts;
  std::optional<BusySet::Mark> m_mark;
};

}  // namespace orv
