#pragma once

#include <QObject>
#include <QString>

// The key filter of an entry field: only the listed characters pass, and backspace if allowed; a
// refused key is dropped. Keys that type nothing (arrows, Tab) are not its business.
class FiltroTasti : public QObject {
    Q_OBJECT
public:
    FiltroTasti(QObject *campo, QString ammessi, bool cancella);

protected:
    bool eventFilter(QObject *oggetto, QEvent *evento) override;

private:
    QString m_ammessi;
    bool m_cancella;
};
