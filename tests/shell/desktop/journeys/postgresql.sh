# A PostgreSQL database for a journey, and the editor of the class of its table orders. Sourced behind steps.sh.
# shellcheck shell=bash disable=SC2154

server=${VELDRANE_TEST_POSTGRESQL:-}
[ -n "$server" ] || skip "no PostgreSQL runs: start this with scripts/database-servers run"
database=${place##*.}
database=veldrane_journey_${database,,}
readonly server database

run_sql() { # DATABASE
    psql --no-psqlrc --quiet --set=ON_ERROR_STOP=1 --username=veldrane --port=5432 --host="$server" --dbname="$1"
}

make_postgresql_database() {
    echo "create database $database" | run_sql postgres
    run_sql "$database" <<'SQL'
create table customers (customerid serial primary key, companyname varchar(40) not null);
create table shippers (shipperid serial primary key, shippername varchar(40) not null, phone varchar(24));
create table orders (orderid serial primary key, customerid integer not null references customers,
    shipperid integer, orderdate date);
create function orderssince(since date) returns setof orders
    language sql as 'select * from orders where orderdate >= since';
SQL
    printf '[PostgreSQL Unicode]\nDriver=psqlodbcw.so\n' >>"$ODBCSYSINI/odbcinst.ini"
}

readonly editor='Edit order' field='Edit shipperid'
readonly procedures='Add Stored Procedures' procedure='Add New Stored Procedure: orderssince'

press_ok_by_mouse() { click "$1" -137 -22; } # TITLE
press_ok_by_keys() { keys "$1" Return; } # not from a list, where it opens what is selected

# Leaves the dialog of the field open.
name_field_by_mouse() { # NAME
    click "$editor" 199 24 # the tab Properties
    click "$editor" 76 138 2 # the third field
    click "$field" 263 97 2 # its name
    type_text "$field" "$1"
}
name_field_by_keys() { # NAME
    keys "$editor" alt+p alt+f Home Down Down Return
    keys "$field" alt+n ctrl+a
    type_text "$field" "$1"
}

add_procedure_by_mouse() { # NAME OF THE METHOD
    click "$editor" 279 24 # the tab Methods
    click "$editor" 464 155 # Stored Procedures
    click "$procedures" 22 67
    press_ok_by_mouse "$procedures"
    type_text "$procedure" "$1"
    press_ok_by_mouse "$procedure"
}
add_procedure_by_keys() { # NAME OF THE METHOD
    keys "$editor" alt+m alt+h ctrl+Insert
    keys "$procedures" Down space Return
    type_text "$procedure" "$1"
    press_ok_by_keys "$procedure"
}

has_code() { # FILE LINE'S_BEGINNING
    grep -aF -- "$2" "$1" >/dev/null || give_up "${1##*/} lacks: $2"
}
