// Begins nothing: that everything links is what is asked.
int main() {
    return 0;
}
