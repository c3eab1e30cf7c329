// One of the two processes of the numbering test: makes N invoices on one
// series of a company, as fast as it can.
//   vk_proceso_numeracion CADENA CLIENTE N
#include <BdSesion.h>
#include <Error.h>
#include <InteraccionGuion.h>
#include <QCoreApplication>
#include <VKFACVENTAS.h>
#include <cstdio>
#include <frmIniFav.h>

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const QStringList args = QCoreApplication::arguments();
    if (args.size() != 4) {
        std::fprintf(stderr, "uso: vk_proceso_numeracion CADENA CLIENTE N\n");
        return 2;
    }
    try {
        auto bd = vk::BdSesion::Abre(args[1]);
        vk::InteraccionGuion ui;
        vk::EstableceInteraccion(&ui);
        vk::VKFACVENTAS f;
        f.setMyBd(*bd);
        f.SerieFactura = QStringLiteral("C");
        f.IdCliente = args[2].toInt();
        const int n = args[3].toInt();
        for (int i = 0; i < n; ++i) {
            // Whichever process finds the series empty takes the default, 1.
            ui.dialogos.push_back(
                [](vk::DialogoModelo& d) { return dynamic_cast<vk::frmIniFav&>(d).cmdInforme(); });
            f.NumeroFactura = 0;
            if (f.NuevaFactura() <= 0) {
                std::fprintf(stderr, "factura %d no creada\n", i);
                return 1;
            }
            ui.dialogos.clear();
        }
    } catch (const vk::Error& e) {
        std::fprintf(stderr, "%s\n", e.Mensaje().toUtf8().constData());
        return 1;
    }
    return 0;
}
