#include "orderlog.h"

#include <QPlainTextEdit>
#include <QTime>

OrderLog::OrderLog(QWidget *parent)
    : QDockWidget(tr("Order log"), parent)
    , view(new QPlainTextEdit)
{
    setObjectName(QStringLiteral("orderLog"));
    view->setReadOnly(true);
    view->setMaximumBlockCount(500);
    // Two lines at the least; the rest of the height belongs to the chart.
    view->setMinimumHeight(linesHeight(2));
    setWidget(view);
    setFeatures(QDockWidget::DockWidgetMovable | QDockWidget::DockWidgetFloatable);
}

int OrderLog::linesHeight(int lines) const
{
    const QMargins m = view->contentsMargins();
    return lines * view->fontMetrics().lineSpacing() + m.top() + m.bottom()
        + 2 * int(view->document()->documentMargin());
}

void OrderLog::log(const QString &text)
{
    view->appendPlainText(QTime::currentTime().toString(QStringLiteral("HH:mm:ss  ")) + text);
}

QString OrderLog::text() const
{
    return view->toPlainText();
}
