#include "app/campaigns/Spintax.h"

#include "app/campaigns/TextVariables.h"
#include "kit/models/campaigns/campaignRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

QString DraftVariant::*Spintax::textOf(const QString& field) {
  return field == "subject"_L1 ? &DraftVariant::subject : &DraftVariant::body;
}

Task<std::optional<QString>> Spintax::make(QString field, QString before) {
  if (before.trimmed().isEmpty()) {
    m_context.services.toasts.show({.message = u"Write the email first, then spin it"_s});
    co_return std::nullopt;
  }
  set(field);
  std::optional<SpintaxOut> spun;
  try {
    spun = co_await m_context.api.send(Requests::spinText({before, field}));
  } catch (const APIError& error) {
    m_context.services.toasts.failure(u"Couldn’t add spintax."_s, error);
  }
  set({});
  if (!spun) co_return std::nullopt;
  // Only the lines that the service changed lose the ends that they came with.
  co_return followed(before, withLineFeeds(before), withLineFeeds(spun->text));
}

QString Spintax::before(const QUuid& variant, const QString& field, const QString& now) const {
  const Spun spun = m_spun.value({variant, field});
  return spun.after == now ? spun.before : QString();
}

void Spintax::set(const QString& field) {
  if (std::exchange(m_field, field) != field) m_changed();
}

}  // namespace orv
