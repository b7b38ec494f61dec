#pragma once

#include <QWidget>

class QLabel;

// The small window of the foreign update: which league is being fetched, in lblCont.
class FrmAggStra : public QWidget {
    Q_OBJECT
public:
    explicit FrmAggStra(QWidget *cornice);

    // The progress text, painted at once so that it is seen while the page downloads.
    void setTesto(const QString &testo);
    QString testo() const;

private:
    QLabel *m_lblCont;
};
