#pragma once

#include "app/base/Archive.h"
#include "kit/models/campaigns/campaign.h"
#include "kit/models/campaigns/campaignSummary.h"

namespace orv {

/// Brings the row up to what a campaign read or answered later says.
void follow(CampaignSummary& row, const Campaign& campaign);

/// The requests of what is deleted and brought back, whose words differ by place.
Archive<Campaign>::Requests campaignArchiveRequests();

/// What the "Resume" of a message does once the page that paused the campaign is gone; `told` is said when it has.
std::function<void()> laterResume(WorkspaceContext& context, const QString& id, const QString& told);

/// A campaign as it was when somebody began to type a new name for it. A name that somebody else gave meanwhile is not
/// overwritten unseen: the service refuses the older version, and what is read then is the person's to overwrite.
struct RenamedCampaign {
  QString id;
  QString name;
  std::optional<qint64> version;
  bool isRefused = false;

  template <class Shape>
  static RenamedCampaign of(const Shape& campaign) {
    return {.id = campaign.id, .name = campaign.name, .version = campaign.version};
  }
  /// The version that the new name is put on; `now` is what is known of the campaign by now, if anything.
  template <class Shape>
  std::optional<qint64> versionBeside(const Shape* now) const {
    return now && now->name == name ? now->version : version;
  }
  /// For Actions::Tell: nothing has been told.
  bool failed(const APIError& error) {
    isRefused = isVersionConflict(error);
    return false;
  }
  /// It has come again.
  template <class Shape>
  void follow(const Shape* now) {
    if (isRefused && now && now->version != version) *this = of(*now);
  }
};

/// What is typed of a new name is one text in the journal, wherever it is typed.
QString renameKey(const QString& id);

/// Puts the campaign's address for other people on the clipboard, and says so.
void copyCampaignLink(Services& services, const QString& id);

}  // namespace orv
