/** @file
 *  Regular expressions: compiled programs and matching.
 */
#ifndef QZFILESHARED_QZREGEX_H
#define QZFILESHARED_QZREGEX_H

#include "qzexport.h"

#ifdef __cplusplus
extern "C" {
#endif

typedef struct qz_regexp {
    const char *startp[10];
    const char *endp[10];
    char regstart;
    char reganch;
    const char *regmust;
    int regmlen;
    unsigned char program[1];
} qz_regexp;

QZ_API qz_regexp *qz_regcomp(const char *pattern);
QZ_API int qz_regexec(qz_regexp *program, const char *text);

#ifdef __cplusplus
}
#endif

#endif
