#include "app/setup/SetupPhoto.h"

#include <QFile>

#include "kit/async/background.h"
#include "kit/models/setup/setupRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

const auto tooLarge = u"Use a photo of 1 MB or less"_s, wrongType = u"Use a JPEG or PNG photo"_s;

struct ReadPhoto {
  QString error;
  SetupPhotoBody body;
  QByteArray bytes;
};

/// Not for the main thread. What is longer than it may be is not read to its end.
ReadPhoto readPhoto(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return {u"Couldn’t read that file"_s, {}, {}};
  const QByteArray bytes = file.read(mostPhotoBytes + 1);
  const QString type = photoTypeOf(bytes);
  if (type.isEmpty()) return {wrongType, {}, {}};
  if (bytes.size() > mostPhotoBytes) return {tooLarge, {}, {}};
  return {{}, {type, QString::fromLatin1(bytes.toBase64())}, bytes};
}

}  // namespace

QString photoTypeOf(QByteArrayView bytes) {
  if (bytes.startsWith("\xff\xd8\xff")) return u"image/jpeg"_s;
  if (bytes.startsWith("\x89PNG\r\n\x1a\n")) return u"image/png"_s;
  return {};
}

SetupPhoto::SetupPhoto(QString id, Actions& actions, Resource<SetupProject>& project, Store& whole)
    : Store(whole.context(), &whole), m_id(std::move(id)), m_actions(actions), m_project(project) {
  connect(&project, &ResourceBase::valueChanged, this, &SetupPhoto::follow);
  connect(&m_busy, &BusySet::changed, this, &SetupPhoto::changed);
}

void SetupPhoto::follow() {
  if (!stored()) {
    m_source.clear();
    m_loaded.reset();
    m_load.cancel();
  } else if (!busy() && m_loaded != m_project.value()->version) {
    m_loaded = m_project.value()->version;
    m_load.start(loadTask());
  }
  Q_EMIT changed();
}

Task<void> SetupPhoto::loadTask() {
  try {
    const RawData photo = co_await api().send(Requests::setupPhoto(m_id, m_seen));
    show(photo.data);
  } catch (const APIError&) {
    // The form says that there is one; its picture is tried again with the next reading of the project.
    m_loaded.reset();
  }
}

void SetupPhoto::show(const QByteArray& photo) {
  const QString type = photoTypeOf(photo);
  m_source = type.isEmpty() ? QString() : u"data:"_s + type + u";base64,"_s + QString::fromLatin1(photo.toBase64());
  Q_EMIT changed();
}

Task<void> SetupPhoto::chooseTask() {
  if (!canWrite() || busy()) co_return;
  const auto path = co_await services().filePanel.openFile(u"Photo"_s, u"jpg jpeg png"_s);
  if (path) co_await uploadTask(*path);
}

void SetupPhoto::take(const QUrl& file) {
  if (canWrite() && file.isLocalFile()) m_tasks.start(uploadTask(file.toLocalFile()));
}

Task<void> SetupPhoto::uploadTask(QString path) {
  const auto mark = m_busy.mark(u"photo"_s);
  if (!mark) co_return;
  const ReadPhoto read = co_await inBackground<ReadPhoto>([path] { return readPhoto(path); });
  if (!read.error.isEmpty())
    co_return (void) services().toasts.show({.message = read.error, .tone = Toasts::Tone::error});
  const auto build = [id = m_id, body = read.body] { return Requests::uploadSetupPhoto(id, body); };
  const auto saved = co_await m_actions.perform<SetupProject>(
      {m_id + u"/photo"_s, m_id}, build, u"Couldn’t save the photo."_s, [this](const SetupProject& answer) {
        ++m_seen;
        m_loaded = answer.version;
      });
  if (!saved) co_return;
  show(read.bytes);
  services().toasts.success(u"Photo saved"_s);
}

Task<void> SetupPhoto::removeTask() {
  const auto mark = m_busy.mark(u"photo"_s);
  if (!mark || !stored() || !canWrite()) co_return;
  const auto failure = u"Couldn’t remove the photo."_s;
  // The answer brings no record: who saves next is to wait for the version that this makes.
  const auto turn = co_await context().turns().next(m_id);
  if (!turn)
    co_return (void) services().toasts.show(
        {.message = failure, .tone = Toasts::Tone::error, .detail = deletedMeanwhile()});
  if (!co_await m_actions.send(Requests::removeSetupPhoto(m_id), failure)) co_return;
  ++m_seen;
  m_source.clear();
  m_project.update([](SetupProject& project) { project.hasPhoto = false; });
  services().toasts.success(u"Photo removed"_s);
  const auto read =
      co_await m_actions.send(Requests::getSetupProject(m_id), {}, {}, [](const APIError&) { return true; });
  if (!read) m_project.markStale();
}

}  // namespace orv
