#pragma once

// The hourglass over the whole program while it lives (the mouse pointer of a long operation);
// rilascia gives the pointer back sooner.
class MdiClessidra {
public:
    MdiClessidra();
    ~MdiClessidra() { rilascia(); }
    MdiClessidra(const MdiClessidra &) = delete;
    MdiClessidra &operator=(const MdiClessidra &) = delete;
    void rilascia();

private:
    bool m_attiva = true;
};
