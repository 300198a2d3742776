#include "shell/CatalogoMensajes.h"

#include <gtest/gtest.h>

TEST(CatalogoMensajes, EveryIdTheProgramShowsHasASpanishText) {
  for (int id : {100, 108, 300, 301, 302, 303, 400, 409, 410, 422, 5508, 5509, 5510, 5512, 5522,
                 5524, 5525, 5526, 5527}) {
    EXPECT_TRUE(CatalogoMensajes::Existe(id)) << id;
    EXPECT_FALSE(CatalogoMensajes::Texto(id).startsWith(QStringLiteral("Mensaje "))) << id;
  }
  EXPECT_EQ(CatalogoMensajes::Texto(100), QStringLiteral("Escribano"));
  EXPECT_EQ(CatalogoMensajes::Texto(7), QStringLiteral("Mensaje 7"));
}

TEST(CatalogoMensajes, ShownMessagesCarryTitleDetailAndAnswer) {
  PresentadorGrabador p;
  p.respuestas = {RespuestaMensaje::No};
  CatalogoMensajes::Instalar(&p);
  EXPECT_EQ(CatalogoMensajes::Mostrar(300, QStringLiteral("C:\\Prog\\Nimbar.mdb"),
                                      IconoMensaje::Critico, BotonesMensaje::SiNo),
            RespuestaMensaje::No);
  EXPECT_EQ(CatalogoMensajes::MostrarTexto(QStringLiteral("Hola")), RespuestaMensaje::Aceptar);
  CatalogoMensajes::Instalar(nullptr);
  ASSERT_EQ(p.mostrados.size(), 2u);
  EXPECT_EQ(p.mostrados[0].titulo, CatalogoMensajes::Texto(100));
  EXPECT_EQ(p.mostrados[0].texto,
            CatalogoMensajes::Texto(300) + QStringLiteral("\nC:\\Prog\\Nimbar.mdb"));
  EXPECT_EQ(p.mostrados[0].icono, IconoMensaje::Critico);
  EXPECT_EQ(p.mostrados[1].id, 0);
  EXPECT_EQ(p.mostrados[1].texto, QStringLiteral("Hola"));
  EXPECT_EQ(p.Ids(), (std::vector<int>{300, 0}));
}
