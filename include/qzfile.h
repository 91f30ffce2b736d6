/** @file
 *  Files, paths, directory listing, line endings, digests, installation layout and release names.
 */
#ifndef QZFILESHARED_QZFILE_H
#define QZFILESHARED_QZFILE_H

#include "qzexport.h"

#include <stddef.h>
#include <stdio.h>

#ifdef __cplusplus
extern "C" {
#endif

QZ_API int qzfile_initialize(void);
QZ_API int qzfile_terminate(void);
/* search path */
QZ_API int qzfile_path_add(const char *list);
QZ_API int qzfile_path_set(const char *list);
QZ_API int qzfile_path_clear(void);
QZ_API int qzfile_path_add_cwd(void);
QZ_API int qzfile_path_add_home(void);
QZ_API int qzfile_path_get(char **out);
QZ_API int qzfile_path_print(FILE *stream);
QZ_API int qzfile_exists(const char *name, int type);
QZ_API int qzfile_file_exists(const char *path, int type);
QZ_API int qzfile_find(const char *name, int type, char **out);
QZ_API int qzfile_path_is_absolute(const char *path);
QZ_API int qzfile_path_localize(char *path, int size);
QZ_API int qzfile_path_to_unix(char *path, int size);
QZ_API char qzfile_get_filesep_char(void);
QZ_API const char *qzfile_get_constant(int index);
/* open files */
QZ_API int qzfile_open(const char *name, FILE **out, const char *mode);
QZ_API int qzfile_close(FILE *stream);
QZ_API int qzfile_file_get_path(FILE *stream, char *buf, size_t size);
QZ_API char *fgets_safe(char *buf, int size, FILE *stream);
/* directories */
QZ_API int qzfile_dir_expand(const char *text, char **out);
QZ_API int qzfile_dir_expand_buffer(char *buf, int size);
QZ_API int qzfile_dir_home(char **out);
QZ_API int qzfile_dir_user_home(const char *user, char **out);
QZ_API int qzfile_dir_current_get(char **out);
QZ_API int qzfile_dir_current_set(const char *dir);
QZ_API int qzfile_dir_current_push(void);
QZ_API int qzfile_dir_current_pop(void);
QZ_API char *qzfile_add_component(const char *dir, const char *component);
QZ_API char *qzfile_remove_component(const char *path);
QZ_API char *qzfile_get_last_component(const char *path);
QZ_API int qzfile_parse_path(const char *path, char **dir, char **base);
QZ_API void qzfile_free_component_string(char *s);
QZ_API int qzfile_mkdir(const char *path, int mode);
/* listing */
QZ_API int qzfile_open_directory(int *handle, const char *path);
QZ_API int qzfile_set_dir_filter(int handle, const char *pattern);
QZ_API int qzfile_get_next_file(int handle, char *name, int size);
QZ_API int qzfile_close_directory(int handle);
QZ_API int qzfile_rm_recursive(const char *path);
/* line endings */
QZ_API int qzfile_is_dosfile(const char *path);
QZ_API int qzfile_dos_to_unix(const char *path);
QZ_API int qzfile_dos_to_unix_register(const char *path);
QZ_API int qzfile_dos_to_unix_convert(void);
/* digests */
QZ_API int qzfile_md5_file(unsigned char digest[16], const char *path);
QZ_API int qzfile_md5_filter(unsigned char digest[16]);
QZ_API int qzfile_md5_string(unsigned char digest[16], const char *text);
/* installation layout */
QZ_API int qzfile_find_product_dir(const char *product, char **out);
QZ_API const char *qzfile_get_halcyra_support_error_mesg(void);
QZ_API int qzfile_halcyra_appdata_dir(char **out);
QZ_API int qzfile_halcyra_local_appdata_dir(char **out);
QZ_API int qzfile_halcyra_userdata_dir(char **out);
QZ_API int qzfile_get_desktop_dir(char **out);
QZ_API int qzfile_get_mydocuments_dir(char **out);
QZ_API int qzfile_get_mynetworkplaces_dir(char **out);
QZ_API int qzfile_get_halcyra_temp(char **out);
QZ_API int qzfile_get_appdata_release_dir(char **out);
QZ_API int qzfile_appdata_release_dir(char **out);
QZ_API int qzfile_get_release_name(char **name);
QZ_API int qzfile_get_product_version(const char *product, int *version);

#ifdef __cplusplus
}
#endif

#endif
