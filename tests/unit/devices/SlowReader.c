/* A reader's library whose every question for a card takes its time, ANSWER_MS, and ends without one. */

#include <stdio.h>
#include <time.h>

int ReadRFID(unsigned char* serial)
{
    const struct timespec answerTime = {ANSWER_MS / 1000, ANSWER_MS % 1000 * 1000 * 1000};
    (void)serial;
    fputs("read begins\n", stderr);
    nanosleep(&answerTime, NULL);
    fputs("read ends\n", stderr);
    return 1;
}

int RDSound(int sound) { return sound; }
