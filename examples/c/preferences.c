/* A program that remembers its own sessions in the preferences of the workbench.
 *
 * usage: preferences PROJECT
 */
#include <qzpref.h>

#include <stdio.h>
#include <stdlib.h>

static const QZPREF_PRODUCTS product = QZPREF_ATELIO;

/* A listing that finds no key stays in its group; this leads back to the top. */
static void leave_all_groups(size_t preferences)
{
    char *group = qzpref_get_group(preferences);
    while (group && *group != '\0') {
        free(group);
        qzpref_end_group(preferences);
        group = qzpref_get_group(preferences);
    }
    free(group);
}

/* Every whole number in a group. Both arrays and every name are ours to free. */
static void print_whole_numbers(size_t preferences, const char *group)
{
    char **names = NULL;
    int *values = NULL;
    int count = 0;
    if (qzpref_get_int_list(preferences, group, &names, &values, &count) == QZPREF_SUCCESS_)
        printf("whole numbers in %s:\n", group);
    for (int i = 0; i < count; ++i) {
        printf("    %-24s %d\n", names[i], values[i]);
        free(names[i]);
    }
    free(names);
    free(values);
    leave_all_groups(preferences);
}

/* Writes the session, and the width of the window as this platform has it. */
static int remember_session(size_t preferences, const char *project)
{
    int sessions = 0; /* stays 0 where the key is not there yet */
    qzpref_get_int(preferences, "session/count", &sessions);

    int code = qzpref_set_int(preferences, "session/count", sessions + 1);
    if (code == QZPREF_SUCCESS_)
        code = qzpref_set_string(preferences, "session/project", project);

    qzpref_begin_os_attribute(preferences);
    if (code == QZPREF_SUCCESS_)
        code = qzpref_set_int(preferences, "session/window_width", 1440);
    qzpref_end_os_attribute(preferences);

    if (code == QZPREF_SUCCESS_)
        code = qzpref_sync(preferences);
    if (code == QZPREF_SUCCESS_)
        printf("session %d, project \"%s\"\n", sessions + 1, project);
    return code;
}

int main(int argc, char **argv)
{
    if (argc != 2) {
        fprintf(stderr, "usage: %s PROJECT\n", argv[0]);
        return 2;
    }

    size_t preferences = 0;
    if (qzpref_new(&preferences, product) != 0)
        return 1;

    char *file = qzpref_get_settings_file(preferences);
    printf("preferences in %s\n", file);
    free(file);

    print_whole_numbers(preferences, "display/window");
    const int code = remember_session(preferences, argv[1]);
    if (code != QZPREF_SUCCESS_)
        fprintf(stderr, "the session is not remembered: code %d\n", code);

    qzpref_delete(preferences);
    return code;
}
