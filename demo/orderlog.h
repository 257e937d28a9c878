#ifndef ORDERLOG_H
#define ORDERLOG_H

#include <QDockWidget>

class QPlainTextEdit;

// The terminal's log of order requests, panel changes and data loading,
// docked under the chart. It starts a few lines tall so the chart keeps most
// of a small window, and can be dragged taller.
class OrderLog : public QDockWidget
{
    Q_OBJECT

public:
    explicit OrderLog(QWidget *parent = nullptr);

    void log(const QString &text);
    // Height of `lines` lines of text in the log.
    int linesHeight(int lines) const;
    QString text() const;

private:
    QPlainTextEdit *view;
};

#endif // ORDERLOG_H
