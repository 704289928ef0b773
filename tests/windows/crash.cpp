// Writes where there is no memory: a test that must be seen to fail.
int main ()
{
    volatile int* volatile nowhere = nullptr;
    *nowhere = 1;
    return 0;
}
