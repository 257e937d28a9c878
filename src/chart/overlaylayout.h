#ifndef OVERLAYLAYOUT_H
#define OVERLAYLAYOUT_H

#include <QLayout>
#include <QList>

// Stacks its items on top of each other, each taking the whole rectangle;
// later items lie above earlier ones (the overlay over the splitter).
class OverlayLayout : public QLayout
{
    Q_OBJECT

public:
    explicit OverlayLayout(QWidget *parent = nullptr);
    ~OverlayLayout() override;

    void addItem(QLayoutItem *item) override;
    int count() const override;
    QLayoutItem *itemAt(int index) const override;
    QLayoutItem *takeAt(int index) override;
    QSize sizeHint() const override;
    QSize minimumSize() const override;
    void setGeometry(const QRect &rect) override;

private:
    QList<QLayoutItem *> m_items;
};

#endif // OVERLAYLAYOUT_H
