#pragma once

#include "app/base/desktop/Notifications.h"

namespace orv::test {

/// A desktop that shows nothing and remembers what it was to show.
class FakeNotifications final : public Notifications {
 public:
  QList<Notice> shown;
  QStringList withdrawn;
  void show(const Notice& notice) override { shown.append(notice); }
  void withdraw(const QString& id) override { withdrawn.append(id); }
};

}  // namespace orv::test
