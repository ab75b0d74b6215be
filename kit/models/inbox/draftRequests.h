#pragma once

#include <QString>
#include <optional>

#include "kit/api/APIRequest.h"

namespace orv {

struct ApproveDraftBody;
struct Draft;
struct DraftTraining;
struct DraftVersions;
struct RejectDraftBody;
struct ReviewDraftPage;

namespace Requests {

/// One page of the drafts that wait (`words::draftPending`), or of those that were decided so.
Request<ReviewDraftPage> listDrafts(const QString& status, const std::optional<QString>& cursor = {});
Request<Draft> approveDraft(const QString& id, const ApproveDraftBody& body);
Request<Draft> rejectDraft(const QString& id, const RejectDraftBody& body);
Request<Draft> undoApproveDraft(const QString& id);
/// Takes a rejection back.
Request<Draft> restoreDraft(const QString& id);
/// Has the agent write it in every style. The draft itself stays as it is.
Request<DraftVersions> draftVersions(const QString& id);
Request<DraftTraining> draftTraining(const QString& id);

}  // namespace Requests
}  // namespace orv
