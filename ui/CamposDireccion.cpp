#include "CamposDireccion.h"

#include "Controles.h"

#include <CajasDireccion.h>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

namespace vk::ui {

CamposDireccion::CamposDireccion(QWidget* padre, std::array<QLineEdit*, 41>& text1)
    : text1_(text1), padre_(padre) {
    for (int i : {14, 15, 16, 18, 19, 21, 23}) {
        text1_[i] = NuevaCaja(padre, NombreControl(QStringLiteral("Text1"), i));
    }
    for (int i : {18, 16, 15, 14, 21}) {
        text1_[i]->setMinimumWidth(60);
        text1_[i]->setMaximumWidth(70);
    }
    cboTipoVia = NuevoCombo(padre, QStringLiteral("cboTipoVia"));
    cboProvincias = NuevoCombo(padre, QStringLiteral("cboProvincias"));
    cboPais = NuevoCombo(padre, QStringLiteral("cboPais"));
}

void CamposDireccion::Coloca(QGridLayout& g, int fila) const {
    g.addWidget(NuevaEtiqueta(padre_, QStringLiteral("Vía"), cboTipoVia), fila, 0);
    g.addWidget(cboTipoVia, fila, 1);
    g.addWidget(NuevaEtiqueta(padre_, QStringLiteral("Calle"), text1_[23]), fila, 2);
    g.addWidget(text1_[23], fila, 3, 1, 5);
    g.addWidget(NuevaEtiqueta(padre_, QStringLiteral("Nº"), text1_[18]), fila + 1, 0);
    g.addWidget(text1_[18], fila + 1, 1);
    g.addWidget(NuevaEtiqueta(padre_, QStringLiteral("Esc."), text1_[16]), fila + 1, 2);
    g.addWidget(text1_[16], fila + 1, 3);
    g.addWidget(NuevaEtiqueta(padre_, QStringLiteral("Piso"), text1_[15]), fila + 1, 4);
    g.addWidget(text1_[15], fila + 1, 5);
    g.addWidget(NuevaEtiqueta(padre_, QStringLiteral("Puerta"), text1_[14]), fila + 1, 6);
    g.addWidget(text1_[14], fila + 1, 7);
    g.addWidget(NuevaEtiqueta(padre_, QStringLiteral("C.P."), text1_[21]), fila + 2, 0);
    g.addWidget(text1_[21], fila + 2, 1);
    g.addWidget(NuevaEtiqueta(padre_, QStringLiteral("Población"), text1_[19]), fila + 2, 2);
    g.addWidget(text1_[19], fila + 2, 3, 1, 5);
    g.addWidget(NuevaEtiqueta(padre_, QStringLiteral("Provincia"), cboProvincias), fila + 3, 0);
    g.addWidget(cboProvincias, fila + 3, 1, 1, 3);
    g.addWidget(NuevaEtiqueta(padre_, QStringLiteral("País"), cboPais), fila + 3, 4);
    g.addWidget(cboPais, fila + 3, 5, 1, 3);
}

void CamposDireccion::AModelo(CajasDireccion& d) const {
    d.cboTipoViaIndex = cboTipoVia->currentIndex();
    d.cboPaisIndex = cboPais->currentIndex();
    d.cboProvinciasIndex = cboProvincias->currentIndex();
}

void CamposDireccion::Refresca(const CajasDireccion& d) const {
    RellenaCombo(cboTipoVia, d.cboTipoVia, d.cboTipoViaIndex);
    RellenaCombo(cboPais, d.cboPais, d.cboPaisIndex);
    RellenaCombo(cboProvincias, d.cboProvincias, d.cboProvinciasIndex);
}

} // namespace vk::ui
