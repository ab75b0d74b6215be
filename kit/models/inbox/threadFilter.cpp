#include "kit/models/inbox/threadFilter.h"

#include "kit/api/requestBuilders.h"
#include "kit/models/inbox/inboxWords.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

QList<QueryItem> ThreadFilter::queryItems() const {
  QList<QueryItem> items{{u"limit"_s, u"50"_s}};
  const QString text = query.trimmed();
  const bool onlyDrafts = label == drafts;
  if (!text.isEmpty()) items.append({u"q"_s, text});
  Requests::addFlag(items, u"drafts"_s, onlyDrafts);
  if (!onlyDrafts && label && !label->isEmpty()) items.append({u"label"_s, *label});
  if (mailbox && !mailbox->isEmpty()) items.append({u"mailbox"_s, *mailbox});
  if (tab == Tab::archived) items.append({u"status"_s, words::threadArchived});
  Requests::addFlag(items, u"unread"_s, tab == Tab::unread);
  return items;
}

}  // namespace orv
