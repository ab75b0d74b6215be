#pragma once

#include "app/shell/Resource.h"
#include "app/shell/Services.h"
#include "app/shell/Store.h"
#include "kit/api/APITransport.h"
#include "kit/models/campaigns.h"

namespace orv {

/// One campaign, kept warm while the person moves between a few of them.
class CampaignStore final : public Store {
  Q_OBJECT
  Q_PROPERTY(QString id READ id CONSTANT)
  Q_PROPERTY(QString name READ name NOTIFY changed)
  Q_PROPERTY(orv::ResourceBase* campaign READ campaign CONSTANT)

 public:
  CampaignStore(QString id, APITransport& api, Services& services, QObject* parent = nullptr);

  const QString& id() const { return m_id; }
  /// Empty until loaded.
  QString name() const;
  Resource<Campaign>* campaign() { return &m_campaign; }

  /// Loads when first shown; later calls do nothing.
  Q_INVOKABLE void ensureLoaded();
  void close() override;

 Q_SIGNALS:
  void changed();

 private:
  QString m_id;
  Resource<Campaign> m_campaign;
  bool m_loaded = false;
};

}  // namespace orv
