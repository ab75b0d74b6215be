#pragma once

#include "app/base/CsvFile.h"
#include "app/base/Jobs.h"

namespace orv {

/// A file that goes into a request, as it was when it was looked into.
struct CsvAttachment {
  QString path;
  CsvStamp stamp;
};

/// Raised where the reason is the file's, not the service's.
struct FileTrouble {
  QString reason;
};

/// The request with the file's text in its body, where that says `"csv":""`. The job shows how far it is, from the
/// first byte that is read to the last one that has gone out.
///
/// Throws FileTrouble for a file that cannot be read, or is no longer the one that was looked into.
Task<APIRequest> packCsv(Job* job, CsvAttachment file, APIRequest request);

/// Sends the request with the file in it.
template <class R>
Task<R> sendCsv(Job* job, CsvAttachment file, Request<R> request) {
  static_cast<APIRequest&>(request) = co_await packCsv(job, std::move(file), request);
  co_return co_await job->context().api().send(std::move(request));
}

/// The body that names no text, with the file's text in its place. As long as the file: not for the main thread.
QByteArray bodyWithCsv(const QByteArray& body, QByteArrayView bytes);

}  // namespace orv
