#pragma once

#include "kit/models/inbox/draftReview.h"

namespace orv {

/// Where drafts are decided on, wherever they are shown: what was approved beside a conversation is taken back in the
/// same list as what was approved in the review. An edit of the draft's text is taken from Writings.
class DraftDesk {
 public:
  virtual void approve(const ReviewDraft& item) = 0;
  virtual void skip(const ReviewDraft& item) = 0;
  /// A decision on it is on its way.
  virtual bool isDeciding(const QString& draftId) const = 0;

 protected:
  ~DraftDesk() = default;
};

}  // namespace orv
