// A host that loads its interpreter itself, as a plug-in does: nothing is linked, and its names are
// not in the global scope.

#include "qzerr.hpp"

#include <gtest/gtest.h>

#include <dlfcn.h>

extern "C" const char *__lsan_default_suppressions()
{
    return "leak:libpython3";
}

TEST(Redirection, FindsAnInterpreterOutsideTheGlobalScope)
{
    const halcyra::qzlibs::RedirectQzerrToPythonStderr redirect;
    testing::internal::CaptureStderr();
    qzerr_throw(-1, QZERR_WARNING, "before\n");

    void *const library = dlopen(QZ_TEST_INTERPRETER, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(library, nullptr) << dlerror();
    ASSERT_EQ(dlsym(RTLD_DEFAULT, "Py_IsInitialized"), nullptr);
    const auto initialize = reinterpret_cast<void (*)(int)>(dlsym(library, "Py_InitializeEx"));
    const auto run =
        reinterpret_cast<int (*)(const char *, void *)>(dlsym(library, "PyRun_SimpleStringFlags"));
    const auto finalize = reinterpret_cast<int (*)()>(dlsym(library, "Py_FinalizeEx"));
    initialize(0);
    EXPECT_EQ(run("import io, sys\nsys.stderr = io.StringIO()\n", nullptr), 0);
    qzerr_throw(-1, QZERR_WARNING, "inside\n");
    EXPECT_EQ(run("assert sys.stderr.getvalue() == 'WARNING inside\\n'\n", nullptr), 0);
    finalize();

    EXPECT_EQ(testing::internal::GetCapturedStderr(), "WARNING before\n");
}
