#pragma once

#include <QWidget>

#include <array>

class Griglia;
class QLabel;
class QListWidget;
class StatoProgramma;

// The generator of the integral system of the 9: the terzine chosen in the signs panel, up to
// ten for each block, in three grids; every combination of one terzina a block in a list, which
// goes to the workspace of the 9 for the analysis and the play slips.
class FrmSistema : public QWidget {
    Q_OBJECT
public:
    static constexpr const char *Titolo = " Sviluppo Sistema Integrale";

    explicit FrmSistema(StatoProgramma &stato, QWidget *genitore = nullptr);
    ~FrmSistema() override;

    Griglia &griglia(int gruppo) const { return *m_griglie.at(std::size_t(gruppo - 1)); }

    // The panel changed its groups: the grids show them again, compact to the left.
    Q_INVOKABLE void mostraTerzine();

protected:
    void showEvent(QShowEvent *evento) override;

private:
    void genera();
    void trasferisci();

    StatoProgramma &m_stato;
    std::array<Griglia *, 3> m_griglie{};
    QListWidget *m_lstSistema;
    QLabel *m_lblTot;
    bool m_posizionata = false;
};
