# Puts the paragraph breaks that scdoc writes where there is nothing to break, and mandoc warns of them, where they are
# due: one in front of the end of an indentation goes behind it, and around a heading there is none.
/^\.P$/ { held = 1; next }
/^\.RE/ { print; next }
/^\.(SH|SS)/ || behind_heading { held = 0 }
held { print ".P"; held = 0 }
{ print; behind_heading = /^\.(SH|SS|TH)/ }
