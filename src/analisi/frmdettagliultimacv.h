#pragma once

#include <QWidget>

class Griglia;
class StatoProgramma;

// The last winning column and how its groups of signs stood just before it came out.
class FrmDettagliUltimaCV : public QWidget {
    Q_OBJECT
public:
    static constexpr const char *Titolo = "Dettagli Ultima Colonna Vincente";
    static constexpr int LarghezzaCella = 420; // twips, each of the 14 signs

    explicit FrmDettagliUltimaCV(StatoProgramma &stato, QWidget *genitore = nullptr);
    ~FrmDettagliUltimaCV() override;

    Griglia &grigliaCV() const { return *m_griglia; }

private:
    Griglia *m_griglia;
};
