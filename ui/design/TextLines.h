#pragma once

#include <QPointer>
#include <QQmlParserStatus>
#include <QQuickTextDocument>

class QTextBlockFormat;
class QTextCursor;
class QTextDocument;

namespace orv {

/// Gives the lines of a text control the height that its type is set on, for which the control has no property. It is
/// no edit: undo knows nothing of it.
class TextLines : public QObject, public QQmlParserStatus {
  Q_OBJECT
  Q_INTERFACES(QQmlParserStatus)
  QML_ELEMENT
  Q_PROPERTY(QQuickTextDocument* document READ document WRITE setDocument NOTIFY documentChanged)
  /// Set here instead of in the control, a text is laid out once and not once more for its lines. Of a control that is
  /// read only: nothing that is typed comes back.
  Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
  /// In pixels; 0 leaves the lines as their font has them.
  Q_PROPERTY(double height READ height WRITE setHeight NOTIFY heightChanged)

 public:
  using QObject::QObject;

  QQuickTextDocument* document() const { return m_quickDocument; }
  void setDocument(QQuickTextDocument* document);
  QString text() const { return m_text; }
  void setText(const QString& text);
  double height() const { return m_height; }
  void setHeight(double height);

  void classBegin() override { m_complete = false; }
  void componentComplete() override;

 Q_SIGNALS:
  void documentChanged();
  void textChanged();
  void heightChanged();

 private:
  void apply();
  void write();
  void format(const std::function<void(QTextCursor&, const QTextBlockFormat&)>& edit);

  QPointer<QQuickTextDocument> m_quickDocument;
  QPointer<QTextDocument> m_document;
  QString m_text;
  double m_height = 0;
  bool m_applying = false;
  bool m_writes = false;
  bool m_complete = true;
};

}  // namespace orv
