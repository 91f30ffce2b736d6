#include "qzerr.h"

#include <gtest/gtest.h>

#include <string>

#include <Python.h>

namespace {

std::string received;

int receive(const char *message)
{
    received += message;
    return 0;
}

// The package must speak to the library of its host, not load another one beside it.
TEST(EmbeddedPackage, SharesTheHandlersOfItsHost)
{
    int id = 0;
    qzerr_new(&id);
    qzerr_window(id, receive);
    Py_Initialize();
    const std::string program = "import qzfileshared as qz\n"
                                "assert qz.throw(" +
                                std::to_string(id) + ", qz.Level.FATAL, '100 %')\n";
    EXPECT_EQ(PyRun_SimpleString(program.c_str()), 0);
    EXPECT_EQ(Py_FinalizeEx(), 0);
    EXPECT_EQ(received, "FATAL 100 %");
    qzerr_delete(id);
}

} // namespace
