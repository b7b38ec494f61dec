#pragma once

#include "schedine/fileschedine.h"

#include <QWidget>

#include <array>

class QCalendarWidget;
class QComboBox;
class QDate;
class QLabel;
class QLineEdit;
class QPushButton;
class StatoProgramma;

// The manual update of the coupons: the three coupon files in three pages (A midweek, B Saturday,
// C Sunday), one shown at a time; the page applied is written back to its file.
class FrmAggManual : public QWidget {
    Q_OBJECT
public:
    explicit FrmAggManual(StatoProgramma &stato, QWidget *genitore = nullptr);
    ~FrmAggManual() override;

private:
    // The controls of one page.
    struct Pagina {
        QWidget *pic = nullptr;
        QLineEdit *txtConcorso = nullptr;
        QComboBox *cmbGiorni = nullptr;
        QLabel *lblData = nullptr;
        QPushButton *cmdData = nullptr;
        QLineEdit *mskOra = nullptr;
        std::array<std::array<QLineEdit *, 2>, FileSchedine::Partite> squadre{};
        QCalendarWidget *mv = nullptr;
    };

    QWidget *creaPagina(int indice);
    void mostraPagina(int indice);
    void mostraCalendario(int indice, bool visibile);
    void scegliData(int indice, const QDate &data);
    void caricaSchedine();
    void applica(int indice);

    StatoProgramma &m_stato;
    std::array<Pagina, 3> m_pagine;
};
