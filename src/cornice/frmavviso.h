#pragma once

#include <QDialog>
#include <QSize>

// The warning shown at start-up on a screen too small for the program.
class FrmAvviso : public QDialog {
    Q_OBJECT
public:
    FrmAvviso(QSize risoluzione, QWidget *genitore = nullptr);
};
