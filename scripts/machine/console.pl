# console.pl SOCKET: a terminal in raw mode on the console of a board. Ctrl-A X leaves, Ctrl-A twice types one Ctrl-A.
use strict;
use warnings;
use IO::Select;
use IO::Socket::UNIX;

my $console = IO::Socket::UNIX->new(Peer => $ARGV[0]) or die "$ARGV[0]: $!\n";
my $ready = IO::Select->new($console, \*STDIN);
my $escaped = 0;
syswrite $console, "\r";    # it has said its prompt already

while (1) {
    for my $from ($ready->can_read) {
        sysread($from, my $bytes, 4096) or exit;
        if ($from == $console) {
            syswrite STDOUT, $bytes;
            next;
        }
        my $typed = '';
        for my $key (split //, $bytes) {
            exit if $escaped && $key =~ /[xX]/;
            if (!$escaped && $key eq "\cA") {
                $escaped = 1;
                next;
            }
            $typed .= $key;
            $escaped = 0;
        }
        syswrite $console, $typed if $typed ne '';
    }
}
