#include "desktop/MissingParts.h"

#include <QDBusError>
#include <QFileInfo>
#include <QLoggingCategory>

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

Q_LOGGING_CATEGORY(lcMissing, "orvella.missing")

QString folderOf(const QString& file) { return u'“' + QFileInfo(file).absolutePath() + u'”'; }

void tellWhatIsNotKept(const QString& what, const QString& detail, Toasts& toasts) {
  qCWarning(lcMissing, "%s: %s", qPrintable(what), qPrintable(detail));
  toasts.show({.message = what, .tone = Toasts::Tone::error, .detail = detail});
}

}  // namespace

void tellWhatIsMissing(const QDBusConnection& sessionBus, const LogFile& log, const SettingsPreferences& preferences,
                       Toasts& toasts) {
  if (!sessionBus.isConnected())
    qCWarning(lcMissing,
              "There is no session bus, so no notifications, and files, style and proxy are not the desktop's: %s",
              qPrintable(sessionBus.lastError().message()));
  if (!log.isKept())
    tellWhatIsNotKept(u"What you type can’t be kept"_s,
                      u"Orvella can’t write to "_s + folderOf(log.path()) + u", so unsaved text is lost if it ends."_s,
                      toasts);
  if (!preferences.isKept())
    tellWhatIsNotKept(
        u"Your settings can’t be kept"_s,
        u"Orvella can’t write to "_s + folderOf(preferences.path()) + u", so they last until it closes."_s, toasts);
}

}  // namespace orv
